# Runs tavuxml for one case and compares its standard output and exit status.
# -DTOOL=path -DEMULATOR=runner (may be empty) and either -DINPUT=case.xml or
# -DMODE=usage|missing. Texts are passed quoted and never through a list, so
# that the semicolons of entities stay inside their argument.

macro(run_with_file file)
    execute_process(COMMAND ${EMULATOR} ${TOOL} "${file}"
                    OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
endmacro()

macro(run_with_text text)
    execute_process(COMMAND ${EMULATOR} ${TOOL} --text "${text}"
                    OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
endmacro()

macro(check how)
    if(NOT output STREQUAL expected OR NOT status EQUAL expected_status)
        message(FATAL_ERROR "tavuxml ${how}: exit ${status} (expected ${expected_status})\n"
                            "output:\n${output}\nexpected:\n${expected}")
    endif()
endmacro()

if(MODE STREQUAL "usage")
    execute_process(COMMAND ${EMULATOR} ${TOOL} OUTPUT_VARIABLE output ERROR_VARIABLE errors
                    RESULT_VARIABLE status)
    if(NOT status EQUAL 2 OR NOT output STREQUAL "" OR NOT errors MATCHES "usage: tavuxml")
        message(FATAL_ERROR "tavuxml without arguments: exit ${status}, output '${output}'")
    endif()
    execute_process(COMMAND ${EMULATOR} ${TOOL} --text OUTPUT_VARIABLE output
                    ERROR_VARIABLE errors RESULT_VARIABLE status)
    if(NOT status EQUAL 2)
        message(FATAL_ERROR "tavuxml --text without text: exit ${status}")
    endif()
    return()
endif()

if(MODE STREQUAL "missing")
    set(expected "error: Could not open file 'no-such-file.xml'\n")
    set(expected_status 1)
    run_with_file(no-such-file.xml)
    check("no-such-file.xml")
    return()
endif()

string(REGEX REPLACE "\\.xml$" ".out" expected_file "${INPUT}")
file(READ "${expected_file}" expected)
set(expected_status 0)
if(expected MATCHES "^error: ")
    set(expected_status 1)
endif()

run_with_file("${INPUT}")
check("${INPUT}")
if(NOT INPUT MATCHES "-file\\.xml$")
    file(READ "${INPUT}" text)
    run_with_text("${text}")
    check("--text <${INPUT}>")
endif()
