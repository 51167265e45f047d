VRK Filter Template File
Clause templates
~~~~Main Rules
~~~
lower-s, A, '', '', '', v0, v1
~1, 5, s
~~~
word-single, A, '', '', '', v0, v1
~1, 5, single
~~~
no-blanks, A, '', '', '', v0, v1
~1,5,S
~~~
word-value, A, '', '', '', v0, v1
~2, 5, value
~~~
blanks-inside-fields, A, '', '', '', v0, v1
~ 1 , 1 0 , V
~~~
variant-above-3, A, '', '', '', v0, v1
~9, 0, S
~~~
variant-below-0, A, '', '', '', v0, v1
~-4, 0, V
~~~
no-digits, A, '', '', '', v0, v1
~x, y, S
~~~
priority-too-high, A, '', '', '', v0, v1
~0, 99999999999, S
~~~
priority-too-low, A, '', '', '', v0, v1
~0, -99999999999, S
~~~
two-fields, A, '', '', '', v0, v1
~0, 5
after-two-fields, A, '', '', '', v0, v1
~~~
unknown-kind, A, '', '', '', v0, v1
~0, 5, X
after-unknown-kind, A, '', '', '', v0, v1
~~~
rest-of-strings-line, A, '', '', '', v0, v1 dropped
skipped before the first header
~0, 1, V
x
~~~
tilde-alone, A, '', '', '', v0, v1
~
0, 3, S
x
~~~
'any', `quoting`, unquoted, '', "", x, y
~~~
over two
"" "" "" lines v1
~~~
'', '', '', '', '', '', ''
~~~
ties, A, '', '', '', v0, v1
~0, 20, S
a
~0, 10, S
b
~0, 20, S
c
~0, 10, S
d
  kept  
~~~
second-marker, A, '', '', '', v0, v1
~~
partner, On, '', '', '', a, b
~~
after-second-marker, A, '', '', '', v0, v1
~~~
fixed, '', '', '', '', '', ''
~~~
last-label-only, '', '', '', L, '', ''
~~~
 , ,
