# ctest starts the tests that take longest first, so that all processors end together. These are seconds
# on a free machine, about; tests without a line count by their last run. ctest ignores unknown names.
foreach(cost
    AdvisesWhatIsMissing=27 TellsOfTheSimCard=24 GetsEveryPhoneOnline=19 EndsWhateverHappens=15)
  string(REPLACE "=" ";" cost ${cost})
  list(GET cost 0 name)
  list(GET cost 1 seconds)
  set_tests_properties(terminal.DetectCommand.${name} PROPERTIES COST ${seconds})
endforeach()
set_tests_properties(terminal.Record.PlaysTheSameDetection PROPERTIES COST 23)
set_tests_properties(terminal.Files.AreKept PROPERTIES COST 13)
