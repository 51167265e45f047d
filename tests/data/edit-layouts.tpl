VRK Filter Template File
Edit layouts
~~~~Main Rules
"All four",  "a","b","c","d",  "Hosts","Ports"
~0, 10, V
all ${0} ${1}
~~~
"Gap",  "a","","c","",  "Hosts",""
~~~
"Last two",  "","","c","d",  "",""
~~~
"Second",  "","b","","",  "Hosts","Ports"
~~
"Second reply",  "r","","","",  "Back","Forth"
~~~
"Fixed",  "","","","",  "",""
~0, 0, S
fixed
~~~
~~~~Label Rules
~5
"Site",  "Use","","","",  "Members",""
~0, 0, V
label ${L} ${0}
~~~
