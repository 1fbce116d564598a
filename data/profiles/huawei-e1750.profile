# Maker in lower case; echo on (command CR CR LF); unknown commands answer COMMAND NOT
# SUPPORT.
maker = Huawei
name = E1750
source = https://github.com/gammu/gammu/issues/94; Ubuntu Forums gnokii log
phone = Huawei: E1750
unknown = COMMAND NOT SUPPORT

AT+CGMI: huawei
AT+CGMM: E1750
