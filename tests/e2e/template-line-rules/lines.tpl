VRK Filter Template File
Line rules
~~~~Main Rules
~~~
fixed, "", "", "", "", "", ""
~0, 1, S
a


x // tail
// note
"a//b" c
  
crlf
last