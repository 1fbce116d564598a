# Operator name as UCS2 hex (MegaFon); numeric form seen as +COPS: 0,2,"25002".
maker = Siemens
name = (model not stated, multiplexed modem)
source = notes in a vendor file of a GSM daemon
network = MegaFon
undetectable = no answer that names the phone was recorded

AT+COPS?: +COPS: 0,0,"004D0065006700610046006F006E"
