VRK Filter Template File
Labels
~~~~Main Rules
~~~
"Base",  "","","","",  "",""
~0, 10, S
main 10
~0, 50, S
main 50 ${L}
~0, 90, S
main 90
~~~
~~~~Label Rules
~50
~~~
"Site",  "On","","","",  "Hosts",""
~0, 200, S
head ${0} ${L}
~0, 5, V
host ${0} at ${L}
~~~
