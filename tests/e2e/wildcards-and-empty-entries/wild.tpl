VRK Filter Template File
Wild
~~~~Main Rules
~~~
"Pairs",  "On","","","",  "Inside","Outside"
~0, 10, V
from ${0} to ${1}
~0, 20, V
resolved ${0R} to ${1R}
~0, 30, V
only ${0}
~~~
"Plain",  "On","","","",  "Items",""
~0, 40, V
item [${0}]
~~~
"Loose",  "On","","","",  "",""
~0, 50, V
loose ${0} ${1}
~~~
"Strict",  "On","","","",  "Hosts",""
~0, 60, V
strict ${0}
~0, 61, S
strict single ${0R}
~~~
