# The network has no IPv4.
# open: needs the type of the context
context-types = IPV6

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 410070123456789
