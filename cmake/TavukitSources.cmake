# The toolkit's sources: every .cpp under src/ except the module entry routine,
# which only the shared module carries.
file(GLOB_RECURSE TAVUKIT_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.cpp)
list(FILTER TAVUKIT_SOURCES EXCLUDE REGEX ".*/src/host/ModuleEntry\\.cpp$")

# Public headers are included by their file name alone, as a host or module author would.
file(GLOB TAVUKIT_INCLUDE_DIRS LIST_DIRECTORIES true
     ${CMAKE_SOURCE_DIR}/src/base ${CMAKE_SOURCE_DIR}/src/platform ${CMAKE_SOURCE_DIR}/src/host
     ${CMAKE_SOURCE_DIR}/src/manager ${CMAKE_SOURCE_DIR}/src/element ${CMAKE_SOURCE_DIR}/src/xml
     ${CMAKE_SOURCE_DIR}/src/resources ${CMAKE_SOURCE_DIR}/src/script
     ${CMAKE_SOURCE_DIR}/src/controls/text ${CMAKE_SOURCE_DIR}/src/controls/basic
     ${CMAKE_SOURCE_DIR}/src/controls/window ${CMAKE_SOURCE_DIR}/src/controls/map
     ${CMAKE_SOURCE_DIR}/src/controls/list ${CMAKE_SOURCE_DIR}/src/controls/tab
     ${CMAKE_SOURCE_DIR}/src/controls/table
     ${CMAKE_SOURCE_DIR}/src/controls/tree)
