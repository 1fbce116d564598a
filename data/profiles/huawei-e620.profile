# Numeric form +COPS: 0,2,"26203",2; first command after plug-in answered "+CME ERROR: SIM
# busy" in words; unsolicited ^BOOT, ^SRVST, ^MODE and ^SIMST lines on another port; ATZ
# echoed alone, OK in a later read.
maker = Huawei
name = E620
source = Ubuntu Forums thread "Huawei E620 isn't working" (2012-01-14)
network = MEDION Mobile
undetectable = no answer that names the phone was recorded

AT+COPS?: +COPS: 0,0,"MEDION Mobile",2
AT+CGMI: +CME ERROR: SIM busy
AT+CGMI: ERROR
