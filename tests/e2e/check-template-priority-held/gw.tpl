VRK Filter Template File
Check demo
// Clause and section layout as ruleforge reads it.

~~~~Substitutions
|PORT|23|
~~~~Main Rules
~~~
"Mail",  "Inbound","Outbound","","",  "Mail servers","Outside hosts"
~0, 100, V
permit tcp from ${1R} to ${0R} port 25
~1, 101, V
permit tcp from ${0R} to ${1R} port 25
~~~
"Frame",  "","","","",  "",""
~0, 0, S
flush
~~~
"Telnet",  "Allow","","","",  "Inside","Outside"
~0, 20, V
permit tcp ${1} ${0} PORT
~~
"Telnet reply",  "Always","","","",  "Inside","Outside"
~0, 99999999999, V
permit tcp ${0} PORT ${1} established
~0, 2147483647, V
permit tcp ${0} PORT ${1} last
~0, -2147483648, V
permit tcp ${0} PORT ${1} first
~0, -2147483649, V
permit tcp ${0} PORT ${1} held first
~~~
~~~~Label Rules
~500
~~~
"Site",  "Connect","","","",  "Site networks",""
~0, 0, V
label ${L} ${0R}
~~~
