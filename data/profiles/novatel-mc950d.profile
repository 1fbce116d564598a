# Answer to ATI1; no blank line before OK as shown; serial masked.
maker = Novatel
name = MC950D
source = two public pages; their addresses were not kept
undetectable = only the answer to ATI1 was recorded, and the library does not send ATI1

ATI1:= \r\nManufacturer: Novatel Wireless Incorporated\r\nModel: Ovation MC950D Card\r\nRevision: 3.18.02.0-00  [2008-04-15 16:18:23]\r\nIMEI: 000000000000000\r\n+GCAP: +CGSM,+DS\r\nOK\r\n
