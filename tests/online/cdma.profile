# A CDMA phone, which knows no contexts and dials #777.
# open: needs dial rows for CDMA
dials = ATD#777 ATDT#777

AT+GCAP: +CIS707-A, CIS-856, +MS, +ES, +DS, +FCLASS
AT+CGMI: Acme
AT+CGMM: C100
AT+CIMI: 310120123456789
