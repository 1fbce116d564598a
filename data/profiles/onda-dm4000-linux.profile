# The model answer of the DM4000 is the word LINUX, with prefix and quotes; ATI3 answers ERROR.
maker = Onda
name = DM4000 (second record)
source = https://github.com/gammu/wammu/issues/118
phone = Marvell: unnamed model

AT+CGMM: +CGMM: "LINUX"
ATI3: ERROR
