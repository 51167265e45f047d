VRK Filter Template File
Line numbers
~~~~Main Rules
~~~
"Block",  "On","","","",  "Hosts",""
~0, 10, S
first line

// a comment line inside the text
### bad three
~0, 20, V
deny ${0}
deny ${0} from ${1}

label ${L}
~~~
