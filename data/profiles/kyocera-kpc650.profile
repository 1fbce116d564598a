# CDMA; only the first line of the ATI reply is shown by the source.
maker = Kyocera
name = KPC650
source = Ubuntu Forums thread "pppconfig" (2007-01-07)
phone = Kyocera: unnamed model

ATI0: Manufacturer: Kyocera Wireless Corp.
