# What `cmake --install` puts in a prefix, and what `make package` archives:
#
#   bin/                 tavuhost, tavuxml (and Tavukit.dll on Windows)
#   lib/                 libtavukit.so, or the import library libTavukit.dll.a
#   lib/cmake/Tavukit/   the CMake package: Tavukit::tavukit, Tavukit::headers
#   lib/pkgconfig/       tavukit.pc (Linux)
#   include/tavukit/     the public headers, flat: they include each other by name
#   share/doc/tavukit/   the docs and the README
#   share/tavukit/       the examples
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Headers that only the toolkit's own sources include. Everything else under
# src/ is public: the host interfaces, the loader, the exported classes and
# what their declarations need. The SDK test compiles each installed header on
# its own against the install tree alone, so a public header that starts to
# include one of these fails there rather than in an author's build.
set(TAVUKIT_INTERNAL_HEADERS
    CTemplateStack.h
    EscapedText.h
    NumberHelpers.h
    StableSort.h
    TAVUCommands.h
    TAVUTopLevelObjects.h
    TAVUWindowFactory.h
    XMLBuffer.h
    XMLFile.h
    XMLNumbers.h
    XMLStream.h)

file(GLOB_RECURSE TAVUKIT_ALL_HEADERS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h)
set(TAVUKIT_PUBLIC_HEADERS)
foreach(header ${TAVUKIT_ALL_HEADERS})
    get_filename_component(name ${header} NAME)
    if(NOT name IN_LIST TAVUKIT_INTERNAL_HEADERS)
        list(APPEND TAVUKIT_PUBLIC_HEADERS ${header})
    endif()
endforeach()

set(TAVUKIT_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Tavukit)
set(TAVUKIT_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/tavukit)

install(TARGETS tavukit tavukit_headers EXPORT TavukitTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${TAVUKIT_PUBLIC_HEADERS} DESTINATION ${TAVUKIT_INSTALL_INCLUDEDIR})
install(EXPORT TavukitTargets NAMESPACE Tavukit:: DESTINATION ${TAVUKIT_INSTALL_CMAKEDIR})

configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/TavukitConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/TavukitConfig.cmake
                              INSTALL_DESTINATION ${TAVUKIT_INSTALL_CMAKEDIR})
# Before 1.0 a minor version may change the exported classes' layout, so only
# the same minor version is compatible.
write_basic_package_version_file(${CMAKE_BINARY_DIR}/TavukitConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/TavukitConfig.cmake ${CMAKE_BINARY_DIR}/TavukitConfigVersion.cmake
        DESTINATION ${TAVUKIT_INSTALL_CMAKEDIR})

if(NOT WIN32)
    configure_file(${CMAKE_SOURCE_DIR}/cmake/tavukit.pc.in ${CMAKE_BINARY_DIR}/tavukit.pc @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/tavukit.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()

foreach(program tavuhost tavuxml)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    endif()
endforeach()

install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tavukit)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tavukit)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tavukit/examples
        PATTERN "__pycache__" EXCLUDE)

# `make package`: Tavukit-<version>-win64.zip from the Windows build,
# Tavukit-<version>-linux-x86_64.tar.gz from the Linux one, both of the shape above.
set(CPACK_PACKAGE_NAME Tavukit)
set(CPACK_PACKAGE_VENDOR Tavukit)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "A retained-mode GUI toolkit that a host loads as a module")
set(CPACK_RESOURCE_FILE_README ${CMAKE_SOURCE_DIR}/README.md)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY ON)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_SYSTEM_NAME win64)
else()
    set(CPACK_GENERATOR TGZ)
    set(CPACK_SYSTEM_NAME linux-${CMAKE_SYSTEM_PROCESSOR})
endif()
set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}-${CPACK_SYSTEM_NAME})
include(CPack)
