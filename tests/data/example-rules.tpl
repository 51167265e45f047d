VRK Filter Template File
Example Rules
~~~~Main Rules
"Permit Mail",  "Allow","Log","","",  "Mail hosts",""
~~~
"Permit Telnet",  "Allow","","","",  "Inside","Outside"
~~
"Telnet back",  "Reverse","","","",  "Inside","Outside"
~~~
~~~~Label Rules
~10
"Deny Host",  "Deny","","","",  "Hosts",""
~~~
