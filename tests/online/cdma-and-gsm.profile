# A phone that speaks CDMA and GSM: it dials GSM.
dials = ATD*99***1#

AT+GCAP: +CGSM, +CIS707-A, +MS, +ES, +DS
AT+CGMI: Acme
AT+CGMM: C200
AT+CIMI: 250010123456789
