VRK Filter Template File
T// x
~~~~Main Rules
~~~
"A",  "On","","","",  "",""
~0, 1, S
x
~~~
