VRK Filter Template File
Nested
~~~~Substitutions
|aa|1|
|b|2|
|aaa|3|
|a|4|
|aa|5|
|bab|6|
|ab|7|
|aaaa|8|
~~~~Main Rules
~~~
"Frame",  "","","","",  "",""
~0, 0, S
flush
~~~
