# ctest starts the longest tests first, so that all processors end together. It ignores unknown names.
set(longest
  terminal.Files.AreKept
  api.FaultSweep.EveryCallOfASession/AllocationsOnceTraced
  api.FaultSweep.EveryCallOfASession/AllocationsFromThereOnTraced
  api.FaultSweep.EveryCallOfASession/StdioShortTraced
  api.FaultSweep.EveryCallOfASession/StdioOnceTraced
  api.FaultSweep.EveryCallOfASession/StdioFromThereOnTraced
  terminal.DetectCommand.EndsWhateverHappens
  terminal.Record.PlaysTheSameDetection
  api.FaultSweep.EveryCallOfASession/AllocationsOnce
  api.FaultSweep.EveryCallOfASession/AllocationsFromThereOn
  terminal.DetectCommand.TellsOfTheSimCard)
set(cost 100)
foreach(test ${longest})
  set_tests_properties(${test} PROPERTIES COST ${cost})
  math(EXPR cost "${cost} - 1")
endforeach()
