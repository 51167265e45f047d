VRK Filter Template File
Quiet
~~~~Main Rules
~~~
"Allow",  "Permit","","","",  "Hosts",""
~0, 10, V
allow ${0}
~~~
