VRK Filter Template File
Example Rules
~~~~Main Rules
"Permit Mail",  "Allow","Log","","",  "Mail hosts",""
~0, 20, V
mail to ${0}
~1, 20, V
log mail to ${0}
~~~
"Permit Telnet",  "Allow","","","",  "Inside","Outside"
~0, 5, V
telnet ${0} to ${1}
~~
"Telnet back",  "Reverse","","","",  "Inside","Outside"
~0, 5, V
telnet back ${0}
~~~
~~~~Label Rules
~10
"Deny Host",  "Deny","","","",  "Hosts",""
~0, 0, V
deny ${0} at ${L}
~~~
