VRK Filter Template File
T
~~~~Main Rules
F, '', '', '', '', '', ''
~0, 1, S
fixed
~3, 2, S
fixed three
~~~
A, On, '', '', '', '', ''
~0, 5, S
a
~~~
B, On, '', '', '', '', ''
~~~
C, On, '', '', '', '', ''
~~~
D, On, '', '', '', '', ''
~~~
