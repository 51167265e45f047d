VRK Filter Template File
Office gateway
// Filter template for a small office gateway: one outside interface (EXTIF),
// one inside interface (INTIF) and the office network behind it (LANNET).
//
// Filter text of the gateway: one rule a line, "#" starts a remark.
// Addresses are written address;bits, bits being the length of the network
// mask; 0;0 is any address, and an address without ;bits is a host, or the
// network left open by its trailing zero octets (10.1.0.0). In the value places, ${0} and ${1} are the entries as the user
// typed them, ${0R} and ${1R} their address form: a lone * becomes 0;0, a *
// inside an address becomes 0 (10.1.*.* gives 10.1.0.0), and host names are
// looked up (localhost gives 127.0.0.1) unless ruleforge runs with -r.
//
// Priorities: 0 head of the filter, 10 blocked hosts, 100-410 services,
// 500 the per-site blocks (Label Rules), 600 ping, 1000 the closing rule.

~~~~Substitutions
|EXTIF|eth0|
|INTIF|eth1|
|LANNET|10.1.0.0;16|

~~~~Main Rules
~~~
//----------------------------------------------------------------------------
// Head and foot of every filter: no choices, always written.
"Frame",  "","","","",  "",""
~0, 0, S
# Office gateway filter: outside EXTIF, inside INTIF (LANNET)
interface EXTIF outside
interface INTIF inside
flush
~0, 1000, S
# everything not permitted above is dropped and logged
deny ip from 0;0 to 0;0 log
~~~
//----------------------------------------------------------------------------
"Blocked hosts",  "Block","","","",  "Outside hosts",""
~0, 10, V
deny ip from ${0R} to 0;0 in on EXTIF log
~~~
//----------------------------------------------------------------------------
"Mail",  "Inbound","Outbound","","",  "Mail servers","Outside hosts"
~0, 100, S
# mail (smtp)
~0, 101, V
permit tcp from ${1R} to ${0R} port 25 in on EXTIF
~1, 101, S
# mail leaving the office
~1, 102, V
permit tcp from ${0R} to ${1R} port 25 out on EXTIF
~~~
//----------------------------------------------------------------------------
"Web",  "Inbound","Outbound","","",  "Inside hosts","Outside hosts"
~0, 200, V
permit tcp from ${1R} to ${0R} port 80 in on EXTIF
permit tcp from ${1R} to ${0R} port 443 in on EXTIF
~1, 201, V
permit tcp from ${0R} to ${1R} port 80 out on EXTIF
permit tcp from ${0R} to ${1R} port 443 out on EXTIF
~~~
//----------------------------------------------------------------------------
// Remote administration; the companion below lets the answers back out.
"SSH",  "Allow","","","",  "Servers","Admin hosts"
~0, 300, S
# ssh to the gateway and the servers
~0, 301, V
# ${0} from ${1}
permit tcp from ${1R} to ${0R} port 22 in
~~
//----------------------------------------------------------------------------
"SSH replies",  "Allow","","","",  "Servers","Admin hosts"
~0, 310, V
permit tcp from ${0R} port 22 to ${1R} established out
~~~
//----------------------------------------------------------------------------
"DNS",  "Forward queries","","","",  "Inside resolvers","Outside servers"
~0, 400, V
permit udp from ${0R} to ${1R} port 53 out on EXTIF
~0, 410, V
permit udp from ${1R} port 53 to ${0R} in on EXTIF
~~~
//----------------------------------------------------------------------------
"Ping",  "Answer","Send","","",  "Hosts",""
~0, 600, V
permit icmp echo-request from 0;0 to ${0R} in
~1, 600, S
permit icmp echo-request from LANNET to 0;0 out on EXTIF
~~~

~~~~Label Rules
// The block of each site, named after the site, comes after every main
// rule of priority 500 or lower.
~500
~~~
//----------------------------------------------------------------------------
"Site",  "Connect","Log","","",  "Site networks","Site gateways"
~0, 0, S
# site ${L}
~0, 1, V
tunnel ${L} to ${1R} on EXTIF
~0, 2, V
permit ip from ${0R} to LANNET via ${L}
permit ip from LANNET to ${0R} via ${L}
~1, 3, V
log ip from ${0R} via ${L}
~~~
