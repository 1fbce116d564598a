# The catalogue does not know the network. The user knows its access point, user and password.
# connect: --apn own.example --user me --password secret
access-points = own.example
authentication = pap me secret

AT+CGMI: Nokia
AT+CGMM: Nokia 6300
AT+CIMI: 999700123456789
