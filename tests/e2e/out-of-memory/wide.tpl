VRK Filter Template File
Wide
~~~~Main Rules
~~~
"Wide",  "On","","","",  "From","To"
~0, 1, V
permit ${0} ${1}
~~~
