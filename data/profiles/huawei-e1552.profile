# Values as printed by a tool.
maker = Huawei
name = E1552
source = Ubuntu Forums post with gammu --identify
phone = Huawei: E1552
network = 51502

AT+CGMI: huawei
AT+CGMM: E1552
AT+CIMI: 515020000000000
