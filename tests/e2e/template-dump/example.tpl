VRK Filter Template File
Example gateway filter
// comment lines and blank lines are skipped anywhere

~~~~Substitutions
|PORT|23|
|LOGGING|log|
~~~~Main Rules
~~~
//----------------------------------------------------------------------------
"Default",  "","","","",  "",""
~0, 0, S
deny all LOGGING
~~~
//----------------------------------------------------------------------------
"Telnet",  "Inbound","Outbound","","",  "Inside hosts","Outside hosts"
~0, 20, V
permit tcp ${1} ${0} PORT
~1, 20, V
permit tcp ${0} ${1} PORT
~~
//----------------------------------------------------------------------------
"Telnet reply",  "Always","","","",  "Inside hosts","Outside hosts"
~0, 30, V
permit tcp ${0} PORT ${1} established
~~~
~~~~Label Rules
~100
~~~
//----------------------------------------------------------------------------
"Label",  "Use","","","",  "Members",""
~0, 0, V
label ${L} ${0}
~~~
