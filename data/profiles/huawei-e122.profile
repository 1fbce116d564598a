# Echo on in one log, off in the other; numeric form +COPS: 0,2,"24004",2; the operator name
# is a country; operator lines seen on an E122-2; unknown commands answer COMMAND NOT SUPPORT.
maker = Huawei
name = E122
source = https://github.com/gammu/python-gammu/issues/5; Ubuntu Forums thread "Issues with Huawei E122 3G Modem (on Ubuntu 10.04)" (2011-01-05)
phone = Huawei: E122
network = SWEDEN
echo = off
unknown = COMMAND NOT SUPPORT

AT+CGMM: E122
AT+COPS?: +COPS: 0,0,"SWEDEN",2
