# Chip codes with prefix in place of maker and model.
maker = MediaTek based
name = (phone not stated)
source = run log of an SMS gateway in a public repository
phone = MediaTek: unnamed model

AT+CGMI: +CGMI: MTK1
AT+CGMM: +CGMM: MTK2
