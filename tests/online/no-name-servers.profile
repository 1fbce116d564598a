# The network names no name servers. The setting does: 213.87.0.1.
# resolver: 213.87.0.1
authentication = pap mts mts

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 250010123456789
