# Values as printed by a tool; maker printed as Huawei, raw text not visible.
maker = Huawei
name = E3131
source = project notes with gammu --identify
phone = Huawei: E3131

AT+CGMM: E3131
