// Nothing but the headers that all test programs precompile in common.
