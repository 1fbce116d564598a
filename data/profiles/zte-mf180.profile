# Echo on (command CR CR LF text CR LF CR LF OK CR LF).
maker = ZTE
name = MF180
source = https://github.com/gammu/gammu/issues/119
phone = ZTE: MF180

AT+CGMI: ZTE CORPORATION
AT+CGMM: MF180
