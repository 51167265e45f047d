VRK Filter Template File
Extremes
// Priorities and variants beyond 32 bits saturate; equal priorities keep
// the order in which they were read.
~~~~Main Rules
~~~
"Fixed",  "","","","",  "",""
~0, 99999999999999999999, S
f huge
~0, 2147483647, S
f max
~0, -99999999999999999999, S
f -huge
~0, -2147483648, S
f min
~0, 2147483648, S
f max+1
~0, -2147483649, S
f min-1
~0, 0, S
f zero
~99999999999999999999, 7, S
f variant huge
~~~
"Hosts",  "On","","","",  "Hosts",""
~0, -2147483648, V
h min ${0}
~0, 99999999999, V
h big ${0}
~~~
~~~~Label Rules
~-99999999999
~~~
"Lab",  "On","","","",  "",""
~0, 99999999999, S
lab ${L} high
~0, -99999999999, S
lab ${L} low
~~~
