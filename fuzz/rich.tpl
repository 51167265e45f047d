VRK Filter Template File
Fuzz rich
~~~~Substitutions
|IFACE|eth0|
|@|/|
|LOOP|LOOP+|
||empty|
~~~~Main Rules
~~~
"Fixed",  "","","","",  "",""
~0, 0, S
@@ filter for IFACE
~3, 100, S
@@ end ${L} ${0}
~~~
"Allow",  "Permit","Log","","Audit",  "Hosts","Ports"
~0, 10, V
allow ${0R} port ${1R}
~1, 20, V
log ${0} ${1}
~3, -5, V
audit ${0R}
~0, 2147483647, S
top
~~
"Allow reply",  "Always","","","",  "Hosts",""
~0, 30, V
reply ${0} ${1R} LOOP
~~~
"Open",  "","Maybe","","",  "",""
~0, 5, V
open ${0} ${1}
~1, -2147483648, S
bottom
~~~
~~~~Label Rules
~50
~~~
"Label block",  "Enable","Twice","","",  "Ports","Peers"
~0, 0, S
label ${L}:
~0, 1, V
port ${0} on ${L} to ${1R}
~1, 1, V
again ${0R} ${L}
~~
"Label reply",  "On","","","",  "",""
~0, 2, V
back ${L} ${0}
~~~
"Plain label",  "Use","","","",  "",""
~0, 60, S
plain ${L}
~~~
