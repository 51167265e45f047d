VRK Filter Template File
Tokens
~~~~Main Rules
~~~
'it, is' `x"y'`
 , 	,
"" a, b,,c
"unterminated
~0, 1, S
text
~~~
