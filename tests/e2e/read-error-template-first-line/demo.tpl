VRK Filter Template File
Demo gateway
~~~~Substitutions
|IFACE|eth0|
|@|/|
~~~~Main Rules
// filler line 1: comments that make the template longer than one read
// filler line 2: comments that make the template longer than one read
// filler line 3: comments that make the template longer than one read
// filler line 4: comments that make the template longer than one read
// filler line 5: comments that make the template longer than one read
// filler line 6: comments that make the template longer than one read
// filler line 7: comments that make the template longer than one read
// filler line 8: comments that make the template longer than one read
// filler line 9: comments that make the template longer than one read
// filler line 10: comments that make the template longer than one read
// filler line 11: comments that make the template longer than one read
// filler line 12: comments that make the template longer than one read
// filler line 13: comments that make the template longer than one read
// filler line 14: comments that make the template longer than one read
// filler line 15: comments that make the template longer than one read
// filler line 16: comments that make the template longer than one read
// filler line 17: comments that make the template longer than one read
// filler line 18: comments that make the template longer than one read
// filler line 19: comments that make the template longer than one read
// filler line 20: comments that make the template longer than one read
// filler line 21: comments that make the template longer than one read
// filler line 22: comments that make the template longer than one read
// filler line 23: comments that make the template longer than one read
// filler line 24: comments that make the template longer than one read
// filler line 25: comments that make the template longer than one read
// filler line 26: comments that make the template longer than one read
// filler line 27: comments that make the template longer than one read
// filler line 28: comments that make the template longer than one read
// filler line 29: comments that make the template longer than one read
// filler line 30: comments that make the template longer than one read
// filler line 31: comments that make the template longer than one read
// filler line 32: comments that make the template longer than one read
// filler line 33: comments that make the template longer than one read
// filler line 34: comments that make the template longer than one read
// filler line 35: comments that make the template longer than one read
// filler line 36: comments that make the template longer than one read
// filler line 37: comments that make the template longer than one read
// filler line 38: comments that make the template longer than one read
// filler line 39: comments that make the template longer than one read
// filler line 40: comments that make the template longer than one read
// filler line 41: comments that make the template longer than one read
// filler line 42: comments that make the template longer than one read
// filler line 43: comments that make the template longer than one read
// filler line 44: comments that make the template longer than one read
// filler line 45: comments that make the template longer than one read
// filler line 46: comments that make the template longer than one read
// filler line 47: comments that make the template longer than one read
// filler line 48: comments that make the template longer than one read
// filler line 49: comments that make the template longer than one read
// filler line 50: comments that make the template longer than one read
// filler line 51: comments that make the template longer than one read
// filler line 52: comments that make the template longer than one read
// filler line 53: comments that make the template longer than one read
// filler line 54: comments that make the template longer than one read
// filler line 55: comments that make the template longer than one read
// filler line 56: comments that make the template longer than one read
// filler line 57: comments that make the template longer than one read
// filler line 58: comments that make the template longer than one read
// filler line 59: comments that make the template longer than one read
// filler line 60: comments that make the template longer than one read
// filler line 61: comments that make the template longer than one read
// filler line 62: comments that make the template longer than one read
// filler line 63: comments that make the template longer than one read
// filler line 64: comments that make the template longer than one read
// filler line 65: comments that make the template longer than one read
// filler line 66: comments that make the template longer than one read
// filler line 67: comments that make the template longer than one read
// filler line 68: comments that make the template longer than one read
// filler line 69: comments that make the template longer than one read
// filler line 70: comments that make the template longer than one read
// filler line 71: comments that make the template longer than one read
// filler line 72: comments that make the template longer than one read
// filler line 73: comments that make the template longer than one read
// filler line 74: comments that make the template longer than one read
// filler line 75: comments that make the template longer than one read
// filler line 76: comments that make the template longer than one read
// filler line 77: comments that make the template longer than one read
// filler line 78: comments that make the template longer than one read
// filler line 79: comments that make the template longer than one read
// filler line 80: comments that make the template longer than one read
~~~
"Fixed",  "","","","",  "",""
~0, 0, S
@@ filter for IFACE
~0, 100, S
@@ end
~~~
"Allow",  "Permit","Log","","",  "Hosts",""
~0, 10, V
allow ${0R}
~1, 20, V
log ${0}
~~~
~~~~Label Rules
~50
~~~
"Label block",  "Enable","","","",  "Ports",""
~0, 0, S
label ${L}:
~0, 1, V
port ${0} on ${L}
~~~
