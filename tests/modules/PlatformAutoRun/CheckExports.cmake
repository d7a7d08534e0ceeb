# The module exports its two entry points and nothing else. Called with NM and MODULE.
execute_process(COMMAND ${NM} --dynamic --defined-only --format=posix ${MODULE}
    OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${output}")
set(symbols "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE " .*" "" symbol "${line}")
    list(APPEND symbols ${symbol})
endforeach()
list(SORT symbols)
set(expected qt_plugin_instance qt_plugin_query_metadata)
if(NOT symbols STREQUAL expected)
    message(FATAL_ERROR "exported: ${symbols}\nexpected: ${expected}")
endif()
