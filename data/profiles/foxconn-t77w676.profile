# Names the chip maker; model is a bare number, the board name is only in the revision; same
# board under two brands.
maker = Foxconn
name = T77W676 (HP lt4220, Telit LN940)
source = https://github.com/4IceG/luci-app-3ginfo-lite/issues/9
phone = Qualcomm: unnamed model

ATI0: Manufacturer: QUALCOMM INCORPORATED\nModel: 4105\nRevision: T77W676.F0.0.0.4.7.GC.017  1  [Jul 11 2018 00:00:00]\nSVN: 03\nIMEI: xxx\n+GCAP: +CGSM,+DS,+ES
