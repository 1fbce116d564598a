# Android 2.2 over USB; only the first line of the ATI reply is shown by the source.
maker = Samsung
name = Galaxy Fit
source = Ubuntu Forums thread "SAMSUNG Galaxy fit as a modem on Ubuntu" (2011-04-21)
phone = Samsung: unnamed model

ATI0: Manufacturer: SAMSUNG ELECTRONICS CORPORATION
