# Checks what the built module exports and imports.
#   cmake -DMODULE=<file> -DTOOL=<objdump or nm> -DWINDOWS=ON|OFF -P CheckExports.cmake
if(WINDOWS)
    execute_process(COMMAND ${TOOL} -p ${MODULE} OUTPUT_VARIABLE dump RESULT_VARIABLE failed)
else()
    execute_process(COMMAND ${TOOL} -D --defined-only ${MODULE} OUTPUT_VARIABLE dump
                    RESULT_VARIABLE failed)
endif()
if(failed)
    message(FATAL_ERROR "cannot read ${MODULE}")
endif()

set(problems "")
foreach(symbol F1 g_UIManager TavuDriveClock TavuAdvanceClock TavuReleaseClock TavuOpenClipboard
        _ZN10CUIManager6RenderEv)
    if(NOT dump MATCHES "[ \t]${symbol}\n")
        string(APPEND problems "  missing export ${symbol}\n")
    endif()
endforeach()

if(WINDOWS)
    # Nothing but system DLLs: the C and C++ runtimes are linked in.
    string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${dump}")
    foreach(import ${imports})
        string(REPLACE "DLL Name: " "" dll "${import}")
        string(TOUPPER "${dll}" dll)
        if(NOT dll MATCHES "^(KERNEL32|USER32|MSVCRT)\\.DLL$")
            string(APPEND problems "  imports ${dll}\n")
        endif()
    endforeach()
else()
    # Internal helpers stay inside the module.
    foreach(symbol TavuModuleFolderOf MultiByteToWideChar)
        if(dump MATCHES "[ \t]${symbol}\n" OR dump MATCHES "${symbol}[A-Za-z0-9_]*\n")
            string(APPEND problems "  exports internal ${symbol}\n")
        endif()
    endforeach()
endif()

if(problems)
    message(FATAL_ERROR "${MODULE}:\n${problems}")
endif()
message(STATUS "${MODULE}: exports and imports as expected")
