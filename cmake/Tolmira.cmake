# Flags that every target of the program carries, and the three functions by which a folder declares itself.

find_program(TOLMIRA_CCACHE ccache)
if(TOLMIRA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${TOLMIRA_CCACHE}")
endif()

add_library(tolmira_flags INTERFACE)
target_compile_features(tolmira_flags INTERFACE cxx_std_20)
target_compile_options(tolmira_flags INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion)
# With optimisation, g++ 12 takes the toolkit's inlined string building for accesses out of bounds.
target_compile_options(
  tolmira_flags
  INTERFACE "$<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-array-bounds;-Wno-stringop-overflow;-Wno-restrict>")
if(TOLMIRA_WERROR)
  target_compile_options(tolmira_flags INTERFACE -Werror)
endif()
target_compile_definitions(
  tolmira_flags
  INTERFACE QT_NO_CAST_FROM_ASCII
            QT_NO_CAST_TO_ASCII
            QT_NO_CAST_FROM_BYTEARRAY
            QT_NO_URL_CAST_FROM_STRING
            QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
            QT_USE_QSTRINGBUILDER
            TOLMIRA_VERSION="${PROJECT_VERSION}")

# add_subsystem(<name> [LINK <targets>] [UI_LINK <targets>])
#
# The sources of the calling folder become the logic target tolmira_<name>; its Frm*.cpp files and what lies in its
# ui/ folder become tolmira_<name>_ui. The link lines are the include rules: what is not linked is not on the
# include path of a caller for long, because it does not link.
function(add_subsystem name)
  cmake_parse_arguments(ARG "" "" "LINK;UI_LINK" ${ARGN})
  file(GLOB logic CONFIGURE_DEPENDS "*.cpp" "*.h")
  file(GLOB windows CONFIGURE_DEPENDS "Frm*.cpp" "Frm*.h" "ui/*.cpp" "ui/*.h")
  if(windows)
    list(REMOVE_ITEM logic ${windows})
  endif()
  if(logic)
    add_library(tolmira_${name} STATIC ${logic})
    set_target_properties(tolmira_${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(tolmira_${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(tolmira_${name} PUBLIC tolmira_flags Qt6::Core Qt6::Gui ${ARG_LINK})
  endif()
  if(windows)
    add_library(tolmira_${name}_ui STATIC ${windows})
    target_include_directories(tolmira_${name}_ui PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(tolmira_${name}_ui PUBLIC tolmira_flags Qt6::Widgets ${ARG_UI_LINK})
    if(logic)
      target_link_libraries(tolmira_${name}_ui PUBLIC tolmira_${name})
    endif()
  endif()
endfunction()

# add_subsystem_tests(<name> [LINK <targets>] [UI_LINK <targets>])
#
# Every test_*.cpp of the calling folder becomes one CTest test against the logic target; every ui_test_*.cpp one
# against the _ui target, run on the offscreen desktop.
function(add_subsystem_tests name)
  cmake_parse_arguments(ARG "" "" "LINK;UI_LINK" ${ARGN})
  file(GLOB tests CONFIGURE_DEPENDS "test_*.cpp" "ui_test_*.cpp")
  foreach(source ${tests})
    get_filename_component(stem "${source}" NAME_WE)
    set(target "${name}_${stem}")
    add_executable(${target} "${source}")
    target_link_libraries(${target} PRIVATE tolmira_test_support Qt6::Test ${ARG_LINK})
    if(stem MATCHES "^ui_")
      target_link_libraries(${target} PRIVATE tolmira_${name}_ui ${ARG_UI_LINK})
    else()
      target_link_libraries(${target} PRIVATE tolmira_${name})
    endif()
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
    add_test(NAME "${name}.${stem}" COMMAND ${target})
    tolmira_test_environment("${name}.${stem}")
  endforeach()
endfunction()

# The environment that every test runs in: no display, C locale, no sound, nothing of the user's settings. As root,
# and only then, the engine's sandbox has to be off.
function(tolmira_test_environment)
  set(environment
      "QT_QPA_PLATFORM=offscreen"
      "QT_QUICK_BACKEND=software"
      "LC_ALL=C.UTF-8"
      "QTWEBENGINE_CHROMIUM_FLAGS=--disable-gpu"
      "TOLMIRA_SOURCE_DIR=${PROJECT_SOURCE_DIR}"
      "TOLMIRA_BIN_DIR=${CMAKE_BINARY_DIR}/bin")
  execute_process(COMMAND id -u OUTPUT_VARIABLE uid OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(uid STREQUAL "0")
    list(APPEND environment "QTWEBENGINE_DISABLE_SANDBOX=1")
  endif()
  foreach(test ${ARGN})
    # A folder of its own for the pages that it writes, so that no test disturbs another or a program that is running.
    set(temp "${CMAKE_BINARY_DIR}/tests/temp/${test}")
    file(MAKE_DIRECTORY "${temp}")
    set_tests_properties(${test} PROPERTIES ENVIRONMENT "${environment};TEMP=${temp}" TIMEOUT 120)
  endforeach()
endfunction()
