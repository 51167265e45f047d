VRK Filter Template File
Quotes
~~~~Main Rules
~~~
x"y,  "On","","","",  "Hosts",""
~0, 10, V
allow ${0}
~~~
"Plain",  "On","","","",  "",""
~0, 20, S
plain
~~~
