# The network has no IPv4.
# catalogue: cards
# calls: 1
context-types = IPV6

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 999020123456789
