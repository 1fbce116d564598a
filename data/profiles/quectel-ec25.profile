# Echo on; model alone, without the maker.
maker = Quectel
name = EC25
source = https://github.com/gammu/gammu/issues/492
phone = Quectel: EC25

AT+CGMM: EC25
