# A CDMA phone, which knows no contexts and dials #777. Its operator has GSM as well.
dials = ATD#777 ATDT#777

AT+GCAP: +CIS707-A, CIS-856, +MS, +ES, +DS, +FCLASS
AT+CGMI: Acme
AT+CGMM: C100
AT+CIMI: 460031234567890
AT+CPIN?: +CME ERROR: 10
AT+CREG?: ERROR
AT+CGDCONT=*: ERROR
