VRK Filter Template File
Odd labels
~~~~Main Rules
~~~
"V2",  "","","Two","",  "Hosts",""
~2, 1, V
two ${0}
~~~
"it's",  "On","","","",  "Hosts",""
~0, 2, V
quote ${0}
~~~
`a b`,  "On","Log","","",  "Hosts","Peers"
~0, 3, V
blank ${0} ${1}
~~
"a b reply",  "","Back","","",  "Hosts","Peers"
~1, 4, V
reply ${1} ${0}
~~~
~~~~Label Rules
~100
~~~
"L",  "","","Only2","",  "Nets",""
~2, 5, V
label ${L} ${0}
~~~
