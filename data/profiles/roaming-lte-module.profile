# Empty operator name although registered (roaming).
maker = (not stated)
name = LTE module on roaming
source = lab notes of a cellular gateway
undetectable = the operator's name is empty, and no answer that names the phone was recorded

AT+COPS?: +COPS: 0,0,"",7
