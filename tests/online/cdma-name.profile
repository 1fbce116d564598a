# A CDMA phone of a known maker. The network asks for the user and the password of its operator, whose
# name the phone tells.
dials = ATD#777 ATDT#777
authentication = pap evdo@expresso.com evdo

ATI0: MANUFACTURER: C-MOTECH Co., Ltd.
AT+COPS?: +COPS: 0,0,"Expresso"
AT+CGDCONT=*: ERROR
