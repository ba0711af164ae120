# Runs clang-tidy beside the compiler on the sources of a target; any finding fails the build.
option(KORILAN_ANALYSE "Run clang-tidy beside the compiler; needs clang-tidy" OFF)

function(korilan_analyse)
  if(NOT KORILAN_ANALYSE)
    return()
  endif()
  # The compile commands hold options that only g++ knows.
  set(command clang-tidy --quiet --config-file=${CMAKE_CURRENT_SOURCE_DIR}/.clang-tidy
    --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wreserved-identifier)
  if(MINGW)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=include
      OUTPUT_VARIABLE headers OUTPUT_STRIP_TRAILING_WHITESPACE)
    list(APPEND command --extra-arg=--target=x86_64-w64-mingw32 --extra-arg=-isystem${headers}/c++
      --extra-arg=-isystem${headers}/c++/x86_64-w64-mingw32)
  endif()
  if(KORILAN_WEB)
    # A module without threads has no guarded statics, so that each constant that a header declares would be a finding.
    list(APPEND command --checks=-bugprone-dynamic-static-initializers)
  endif()
  # The sources of a folder at a time, since most of the time goes into headers. Without analysis each is compiled alone.
  set_target_properties(${ARGV} PROPERTIES CXX_CLANG_TIDY "${command}" UNITY_BUILD ON UNITY_BUILD_MODE GROUP
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
  foreach(target ${ARGV})
    get_target_property(sources ${target} SOURCES)
    foreach(source ${sources})
      get_filename_component(folder ${source} DIRECTORY)
      string(MAKE_C_IDENTIFIER "of_${folder}" group)
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
    endforeach()
  endforeach()
endfunction()
