VRK Filter Template File
Open places
~~~~Main Rules
~~~
"Uncaptioned",  "On","","","",  "",""
~0, 1, V
from ${0R} to ${1R} via ${0}
~~~
"Captioned",  "On","","","",  "Hosts",""
~0, 2, V
host ${0R}
~0, 3, V
port ${1R}
~~~
