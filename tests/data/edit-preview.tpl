VRK Filter Template File
Preview
~~~~Substitutions
|PORT|23|
~~~~Main Rules
"Pairs",  "On","","","",  "Left","Right"
~0, 5, S
head PORT
~0, 10, V
pair ${0} ${1}
~0, 20, V
left ${0R}
~~~
~~~~Label Rules
~50
"Site",  "Use","","","",  "Members",""
~0, 0, V
site ${L} ${0}
~~~
