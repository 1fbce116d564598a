# One-line ATI with model and revision, no maker.
maker = Nokia
name = CS-15
source = Ubuntu Forums thread "Nokia CS-15 mobile broadband not functioning with lubuntu 11.10" (2012-01-06)
phone = Nokia: CS-15

ATI0: CS-15 R2.6.2-0634487
