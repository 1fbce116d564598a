# Double blanks and a second label inside values; capability list lacks one plus sign; blank
# line between echo and text; serial masked.
maker = LG
name = VL600
source = Ubuntu Forums thread on the VL600
phone = LG: unnamed model

ATI3: Manufacturer: LG Electronics Inc.\nModel: VL600  136\nRevision:  S/W VER:  VL600ZV4\nESN: 0x00000000\n+GCAP: +CIS707-A, +CIS-856, CIS-856-A, +CGSM, +CLTE1
