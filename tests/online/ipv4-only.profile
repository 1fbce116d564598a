# The network has no IPv6. The setting has both, so the device has to dial again with IPv4 alone.
# catalogue: cards
context-types = IP

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 999030123456789
