# CDMA; prefix nested in the value and a comma in the maker; only the first line of the ATI
# reply is shown by the source.
maker = Huawei
name = EC169
source = comment naming EC169; same line in Ubuntu Forums wvdialconf output
phone = Huawei: unnamed model

ATI0: Manufacturer: +GMI: HUAWEI TECHNOLOGIES CO., LTD
