VRK Filter Template File
Cascade
~~~~Substitutions
|ab|bba|
~~~~Main Rules
~~~
"Fixed",  "","","","",  "",""
~0, 0, S
aaaaaaaaaaaaaaaaab
~~~
