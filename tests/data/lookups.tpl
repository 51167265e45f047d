VRK Filter Template File
Lookups
~~~~Main Rules
"Hosts",  "On","","","",  "Hosts",""
~0, 10, V
host ${0R} as ${0}
~~~
"Off",  "On","","","",  "Hosts",""
~0, 20, V
off ${0R}
~~~
"Singles",  "On","","","",  "Hosts",""
~0, 30, S
single ${0R}
~0, 31, V
plain ${0}
~~~
"Always",  "","Extra","","",  "Hosts",""
~0, 35, V
always ${0R}
~1, 36, V
extra ${0R}
~~~
"Pairs",  "On","Late","","",  "From","To"
~0, 40, V
pair ${0} to ${1R}
~1, 41, V
late ${0R}
~~~
"Out",  "On","","","",  "Inside","Outside"
~0, 50, V
out ${0} to ${1R}
~~
"Back",  "On","","","",  "Inside","Outside"
~0, 51, V
back ${0R} from ${1}
~~~
~~~~Label Rules
~45
"Deny",  "On","","","",  "Hosts",""
~0, 0, V
deny ${0R} on ${L}
~~~
