# Maker in lower case; echo on (command CR CR LF text CR LF CR LF OK CR LF).
maker = Huawei
name = K3770
source = https://github.com/gammu/gammu/issues/231
phone = Huawei: K3770

AT+CGMI: huawei
AT+CGMM: K3770
