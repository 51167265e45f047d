VRK Filter Template File
Demo gateway
~~~~Substitutions
|IFACE|eth0|
|@|/|
~~~~Main Rules
~~~
"Fixed",  "","","","",  "",""
~0, 0, S
@@ filter for IFACE
~0, 100, S
@@ end
~~~
"Allow",  "Permit","Log","","",  "Hosts",""
~0, 10, V
allow ${0R}
~1, 20, V
log ${0}
~~~
~~~~Label Rules
~50
~~~
"Label block",  "Enable","","","",  "Ports",""
~0, 0, S
label ${L}:
~0, 1, V
port ${0} on ${L}
~~~
