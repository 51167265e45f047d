VRK Filter Template File
Subs
~~~~Substitutions
|A|B|
|B|C|
|N|NN|
||v|
|Q|${0}|
~~~~Main Rules
~~~
"Fixed",  "","","","",  "",""
~0, 1, S
A and B, N
~~~
"Val",  "On","","","",  "Values",""
~0, 2, V
val ${0} Q
~~~
~~~~Label Rules
~5
~~~
"Lab",  "On","","","",  "",""
~0, 0, S
in ${L}
~~~
