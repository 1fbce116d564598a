# Echo on; unknown commands answer COMMAND NOT SUPPORT.
maker = Huawei
name = E169
source = https://github.com/gammu/gammu/issues/181
phone = Huawei: E169
unknown = COMMAND NOT SUPPORT

AT+CGMM: E169
