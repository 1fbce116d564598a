# Answer to ATI9, padded with blanks to the width of the screen, which also cuts the revision;
# the blanks are left out.
maker = Sierra Wireless
name = EM7455
source = public page; its address was not kept
undetectable = only the answer to ATI9 was recorded, and the library does not send ATI9

ATI9: Manufacturer: Sierra Wireless, Incorporated\nModel: EM7455\nRevision: SWI9X30C_02.24.05.06 r7040 CARMD-EV-FRMWR2 2017/05/19 0
