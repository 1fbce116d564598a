# Values as printed by a tool; maker printed as Huawei, raw text not visible.
maker = Huawei
name = E353
source = project README with gammu identify
phone = Huawei: E353
network = 20408

AT+CGMM: E353
AT+CIMI: 204080000000000
