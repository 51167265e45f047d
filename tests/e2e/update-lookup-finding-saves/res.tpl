VRK Filter Template File
Resolve
~~~~Main Rules
~~~
"Hosts",  "On","","","",  "Hosts",""
~0, 10, V
host ${0R} as ${0}
~~~
