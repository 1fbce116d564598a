# Numeric form +COPS: 0,2,"26201",13; access technology of two digits.
maker = Fibocom
name = FM150
source = https://github.com/4IceG/luci-app-3ginfo-lite/pull/32
network = Telekom.de
undetectable = no answer that names the phone was recorded

AT+COPS?: +COPS: 0,0,"Telekom.de",13
