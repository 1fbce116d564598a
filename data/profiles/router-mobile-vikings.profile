# Line break inside the quoted operator name (CR CR LF); echo ends CR CR LF.
maker = (not stated)
name = LTE router modem, Mobile Vikings SIM
source = https://github.com/4IceG/luci-app-3ginfo-lite/pull/120
undetectable = a line break inside the operator's name ends the line; only its rest is taken, and no answer that names the phone was recorded

AT+COPS?:= \r\n+COPS: 0,0,"Mobile Vikings\r\r\n",7\r\n\r\nOK\r\n
