VRK Filter Template File
Duplicates
~~~~Main Rules
~~~
"A",  "On","","","",  "Hosts",""
~0, 10, V
allow ${0}
~~~
"A",  "On","","","",  "Hosts",""
~0, 20, V
deny ${0}
~~
"A reply",  "On","","","",  "Hosts",""
~0, 30, V
reply ${0}
~~~
