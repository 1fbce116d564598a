# The phone does not answer at all.
# exit: 3

AT*:=
