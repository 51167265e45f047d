VRK Filter Template File
Clause lines
~~~~Main Rules
~~~
"blanks-in-entries", A, '', '', '', v0, v1
~~~
"label-1-only", '', A, '', '', v0, v1
~~~
"label-gap", A, B, '', D, v0, v1
~~~
"empty-first-list", A, '', '', '', v0, v1
~~~
"comma-in-entry", A, '', '', '', v0, v1
~~~
"nothing-set", A, '', '', '', v0, v1
~~~
"extra-states", A, '', '', '', v0, v1
~~~
"not-zero", A, B, '', '', v0, v1
~~~
"bare-head", A, '', '', '', v0, v1
~~~
"extra-lines", A, '', '', '', v0, v1
~~~
"hashes-only-line", A, '', '', '', v0, v1
~~~
"slashes-in-entry", A, '', '', '', v0, v1
~~~
"empty-first-record", A, '', '', '', v0, v1
~~
"companion", R, '', '', '', v0, v1
~~~
