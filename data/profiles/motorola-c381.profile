# Reply names C380 on a phone sold as C381; IMSI answered with a prefix (same note also lists
# a CDMA Multitech modem for this form).
maker = Motorola
name = C381
source = sample replies in a comment of a public SMS gateway script
phone = Motorola: C380
network = 51011

AT+CGMM: +CGMM: "GSM900","GSM1800","GSM1900","MODEL=C380"
AT+CIMI: +CIMI: 510110000000000
