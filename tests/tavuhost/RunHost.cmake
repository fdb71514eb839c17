# Runs tavuhost for one case and compares its standard output and exit status,
# and its last frame with a golden picture when the case has one.
# -DHOST=path -DEMULATOR=runner (may be empty) -DCASE=path/NAME.args
# -DIMAGEDIFF=path of the picture comparer -DPICTURES=folder for the pictures
# -DPLATFORM=windows or linux: a case may keep NAME.PLATFORM.out (paths in the
# toolkit's messages use the platform's separator) or NAME.PLATFORM.png (text
# is drawn in the platform's own fonts) beside the shared NAME.out and NAME.png

get_filename_component(folder "${CASE}" DIRECTORY)
get_filename_component(name "${CASE}" NAME_WE)
string(REGEX REPLACE "\\.args$" "" base "${CASE}")

file(STRINGS "${CASE}" arguments)
# A case that changes files while it runs (--watch) works on copies: it runs
# in a fresh folder of its own in the build, into which the files that
# NAME.scratch lists are copied first.
set(working "${folder}")
if(EXISTS "${base}.scratch")
    set(working "${PICTURES}/${name}.scratch")
    file(REMOVE_RECURSE "${working}")
    file(MAKE_DIRECTORY "${working}")
    file(STRINGS "${base}.scratch" copies)
    foreach(copy ${copies})
        file(COPY "${folder}/${copy}" DESTINATION "${working}")
    endforeach()
endif()
foreach(kind out png)
    set(${kind} "${base}.${kind}")
    if(EXISTS "${base}.${PLATFORM}.${kind}")
        set(${kind} "${base}.${PLATFORM}.${kind}")
    endif()
endforeach()
set(picture "${PICTURES}/${name}.png")
if(EXISTS "${png}")
    file(REMOVE "${picture}")
    list(APPEND arguments --png "${picture}")
endif()
set(expected_status 0)
if(EXISTS "${base}.status")
    file(STRINGS "${base}.status" expected_status LIMIT_COUNT 1)
endif()

execute_process(COMMAND ${EMULATOR} ${HOST} ${arguments}
                WORKING_DIRECTORY "${working}"
                OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)

if(NOT status EQUAL expected_status)
    message(FATAL_ERROR "tavuhost ${arguments}: exit ${status} (expected ${expected_status})\n"
                        "output:\n${output}\nerrors:\n${errors}")
endif()
if(EXISTS "${out}")
    file(READ "${out}" expected)
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "tavuhost ${arguments}: standard output differs\n"
                            "output:\n${output}\nexpected:\n${expected}\nerrors:\n${errors}")
    endif()
endif()
if(EXISTS "${png}")
    execute_process(COMMAND ${EMULATOR} ${IMAGEDIFF} "${png}" "${picture}"
                    ERROR_VARIABLE difference RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "tavuhost ${arguments}: the picture differs\n${difference}")
    endif()
endif()
