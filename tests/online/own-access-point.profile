# A reseller's card in the operator's network, which takes only the reseller's access point.
# catalogue: cards
# calls: 1
access-points = group.example

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 999010123456789
AT+CRSM=192,28478,0,0,15: +CRSM: 144,0,"620A8202412180020004"
AT+CRSM=176,28478,0,0,4: +CRSM: 144,0,"5A01FFFF"
AT+CRSM=176,28486,0,0,17: +CRSM: 144,0,"004E6F7264FFFFFFFFFFFFFFFFFFFFFFFF"
AT+CRSM=*: +CRSM: 106,130
