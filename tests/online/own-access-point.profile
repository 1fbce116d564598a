# The network takes only its own access point. A reseller's is the first in the catalogue.
access-points = web.vodafone.de

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 262020123456789
