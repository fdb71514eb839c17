# Runs tavuhost for one case and compares its standard output and exit status.
# -DHOST=path -DEMULATOR=runner (may be empty) -DCASE=path/NAME.args

get_filename_component(folder "${CASE}" DIRECTORY)
string(REGEX REPLACE "\\.args$" "" base "${CASE}")

file(STRINGS "${CASE}" arguments)
set(expected_status 0)
if(EXISTS "${base}.status")
    file(STRINGS "${base}.status" expected_status LIMIT_COUNT 1)
endif()

execute_process(COMMAND ${EMULATOR} ${HOST} ${arguments}
                WORKING_DIRECTORY "${folder}"
                OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)

if(NOT status EQUAL expected_status)
    message(FATAL_ERROR "tavuhost ${arguments}: exit ${status} (expected ${expected_status})\n"
                        "output:\n${output}\nerrors:\n${errors}")
endif()
if(EXISTS "${base}.out")
    file(READ "${base}.out" expected)
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "tavuhost ${arguments}: standard output differs\n"
                            "output:\n${output}\nexpected:\n${expected}\nerrors:\n${errors}")
    endif()
endif()
