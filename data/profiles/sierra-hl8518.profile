# Operator name as UCS2 hex (UA-KYIVSTAR); the same name also seen plain as +COPS:
# 0,0,"UA-KYIVSTAR", without access technology.
maker = Sierra Wireless
name = HL8518
source = comment in a meter reading program
network = UA-KYIVSTAR
undetectable = no answer that names the phone was recorded

AT+COPS?: +COPS: 0,0,"00550041002D004B0059004900560053005400410052",2
