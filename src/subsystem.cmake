# SPDX-License-Identifier: GPL-3.0-or-later

# The headers that nearly every library with widgets includes, compiled once. They are listed here and not in a file of
# their own, since its path would tell one clone from another and ccache would serve neither from the other.
set(orb_precompiled_headers <QtCore> <QtGui> <QtWidgets> <array> <chrono> <cmath> <functional> <memory> <optional>
    <string> <vector>)
add_library(orb_pch STATIC pch.cpp)
target_link_libraries(orb_pch PUBLIC orb_options Qt6::Widgets)
target_precompile_headers(orb_pch PRIVATE ${orb_precompiled_headers})
set(orb_precompiled_headers ${orb_precompiled_headers} PARENT_SCOPE)

# Headers in the system's include path are visible to every source. Where the library is not attached its include guard
# is defined, so that the header is empty there.
set(orb_guarded_libraries SQLite::SQLite3 QCustomPlotQt6)
set(orb_include_guards SQLITE3_H QCUSTOMPLOT_H)

# subsystem(NAME [USES LIBRARY...] QT MODULE... [WITH TARGET...]): the folder NAME becomes the library orb_NAME, a slash
# read as an underscore. Its users see the folder itself, the libraries of USES and the modules of QT; NAME/internal and
# the targets of WITH are seen by its own sources alone.
function(subsystem name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;QT;WITH")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "subsystem(${name}): what is ${arg_UNPARSED_ARGUMENTS}?")
    endif()
    set(folder ${CMAKE_CURRENT_SOURCE_DIR}/${name})
    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/internal/*.cpp)
    if(NOT sources)
        message(FATAL_ERROR "src/${name} has no source file")
    endif()
    string(REPLACE / _ target orb_${name})
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC ${folder})
    if(IS_DIRECTORY ${folder}/internal)
        target_include_directories(${target} PRIVATE ${folder}/internal)
    endif()
    foreach(used IN LISTS arg_USES)
        string(REPLACE / _ used_target orb_${used})
        if(NOT TARGET ${used_target})
            message(FATAL_ERROR "${name} uses ${used}, which is not a line above it")
        endif()
        target_link_libraries(${target} PUBLIC ${used_target})
    endforeach()
    list(TRANSFORM arg_QT PREPEND Qt6::)
    target_link_libraries(${target} PUBLIC orb_options ${arg_QT} PRIVATE ${arg_WITH})
    foreach(library guard IN ZIP_LISTS orb_guarded_libraries orb_include_guards)
        if(NOT library IN_LIST arg_WITH)
            target_compile_definitions(${target} PRIVATE ${guard})
        endif()
    endforeach()
    if(Qt6::Widgets IN_LIST arg_QT)
        target_precompile_headers(${target} REUSE_FROM orb_pch)
    endif()
    set_property(GLOBAL APPEND PROPERTY ORB_SUBSYSTEMS ${name})
endfunction()

# All libraries and programs share one namespace and see each other's folders: of two headers with one name, one would
# be taken for the other.
function(forbid_header_twins)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h ${CMAKE_SOURCE_DIR}/apps/*.h
        ${CMAKE_SOURCE_DIR}/resources/*.h)
    foreach(header IN LISTS headers)
        get_filename_component(name ${header} NAME)
        if(DEFINED header_${name})
            message(FATAL_ERROR "two headers are called ${name}: ${header_${name}} and ${header}")
        endif()
        set(header_${name} ${header})
    endforeach()
endfunction()
forbid_header_twins()

# An exported folder would give its internal one away to an include that names it.
function(forbid_includes_by_folder)
    file(GLOB_RECURSE files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h ${CMAKE_SOURCE_DIR}/src/*.cpp
        ${CMAKE_SOURCE_DIR}/apps/*.h ${CMAKE_SOURCE_DIR}/apps/*.cpp)
    foreach(file IN LISTS files)
        file(STRINGS ${file} includes REGEX "^#include \".*/")
        if(includes)
            message(FATAL_ERROR "${file} names a folder: ${includes}")
        endif()
    endforeach()
endfunction()
forbid_includes_by_folder()
