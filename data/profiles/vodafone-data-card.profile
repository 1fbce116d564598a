# Operator name as UCS2 hex in lower case (vodafone ES); before registration only +COPS: 0.
maker = (not stated)
name = Vodafone data card
source = unit test sample of a 3G dialler
network = vodafone ES
undetectable = no answer that names the phone was recorded

AT+COPS?: +COPS: 0,0,"0076006f006400610066006f006e0065002000450053",2
