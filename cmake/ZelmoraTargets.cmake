# How this project makes its targets, so that a folder's own file names sources and links and nothing else.

# Zelmora::codecs: the toolkit's codecs of text, which Qt 6 has in its module for what comes from Qt 5.
add_library(zelmora_codecs INTERFACE)
add_library(Zelmora::codecs ALIAS zelmora_codecs)
set_target_properties(zelmora_codecs PROPERTIES EXPORT_NAME codecs)
target_link_libraries(zelmora_codecs INTERFACE Qt${ZELMORA_QT}::Core)
if(ZELMORA_QT EQUAL 6)
    zelmora_find_qt(Core5Compat)
    target_link_libraries(zelmora_codecs INTERFACE Qt6::Core5Compat)
endif()

# Zelmora::sax: the toolkit's streaming XML classes, which Qt 6 has there too. Qt 5.15 marks them deprecated, and they are
# what this system reads its jobs with: that one warning is silenced where they are used, and nowhere else.
add_library(zelmora_sax INTERFACE)
add_library(Zelmora::sax ALIAS zelmora_sax)
set_target_properties(zelmora_sax PROPERTIES EXPORT_NAME sax)
target_link_libraries(zelmora_sax INTERFACE Qt${ZELMORA_QT}::Xml Zelmora::codecs)
target_compile_options(zelmora_sax INTERFACE -Wno-deprecated-declarations)

# A bare "text" never turns into a QString unseen: Qt 5 would take its bytes as UTF-8.
set(ZELMORA_DEFINITIONS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)

# Names are hidden from what is linked at run time, but for those that are declared with ZELMORA_EXPORT.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# The headers that most files include, compiled once for all that are compiled alike: a build takes half the time. A file
# that misses an include is noticed only without them, as a release and the fuzzers are built.
option(ZELMORA_PRECOMPILE "Compile the headers that most files include once for all" OFF)

# zelmora_precompiled_headers(<name> HEADERS <header>... LINKS <target>... [DEFINITIONS <definition>...]): headers for
# zelmora_precompile.
function(zelmora_precompiled_headers name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;LINKS;DEFINITIONS")
    if(ZELMORA_PRECOMPILE)
        file(GENERATE OUTPUT ${name}.cpp CONTENT "")
        add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
        target_link_libraries(${name} PRIVATE ${arg_LINKS})
        target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
        target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
    endif()
endfunction()

# zelmora_precompile(<target> <name>): the target's files begin with the headers <name>; what the build generates for it
# is too small for that to pay.
function(zelmora_precompile target name)
    if(ZELMORA_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM ${name})
        set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/mocs_compilation.cpp
            PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    endif()
endfunction()

set(core_headers <QByteArray> <QDir> <QFile> <QFileInfo> <QHash> <QObject> <QString> <QStringList> <QVector> <algorithm>
    <functional> <memory> <optional> <utility>)
zelmora_precompiled_headers(precompiled-core
    HEADERS ${core_headers} LINKS Qt${ZELMORA_QT}::Core DEFINITIONS ${ZELMORA_DEFINITIONS})
zelmora_precompiled_headers(precompiled-widgets
    HEADERS ${core_headers} <QAction> <QApplication> <QComboBox> <QGridLayout> <QLabel> <QLineEdit> <QMenu> <QPainter>
        <QPushButton> <QStyle> <QToolButton> <QTreeWidget>
    LINKS Qt${ZELMORA_QT}::Widgets DEFINITIONS ${ZELMORA_DEFINITIONS})
# What a folder's files begin with, where its own list does not say otherwise.
set(ZELMORA_HEADERS precompiled-core)

# zelmora_library(<name> [HEADERS <file>...] SOURCES <file>... LINKS <target>... [PRIVATE_LINKS <target>...]): the
# static library Zelmora::<name>. Headers are those that are installed for other programs, which include them as
# <zelmora/<name>/file.h>: they include each other by paths relative to themselves, so that no header of a program comes
# first. Private links are those that the headers do not show. library/ makes shared libraries of some of these.
function(zelmora_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;SOURCES;LINKS;PRIVATE_LINKS")
    add_library(zelmora_${name} STATIC ${arg_SOURCES})
    add_library(Zelmora::${name} ALIAS zelmora_${name})
    set_target_properties(zelmora_${name} PROPERTIES
        OUTPUT_NAME zelmora-${name}${ZELMORA_SUFFIX}
        EXPORT_NAME ${name}
        POSITION_INDEPENDENT_CODE ${BUILD_SHARED_LIBS})
    target_include_directories(zelmora_${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
    target_link_libraries(zelmora_${name} PUBLIC ${arg_LINKS} PRIVATE ${arg_PRIVATE_LINKS})
    target_compile_features(zelmora_${name} PUBLIC cxx_std_17) # of the headers: a program may have set less
    target_compile_definitions(zelmora_${name} PRIVATE ${ZELMORA_DEFINITIONS})
    zelmora_precompile(zelmora_${name} ${ZELMORA_HEADERS})
    install(FILES ${arg_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelmora/${name}
        COMPONENT development)
endfunction()

# zelmora_program(<name> SOURCES <file>... LINKS <target>...): the program <name>, which finds the build's version in
# ZELMORA_VERSION. The programs lie side by side, as they do when they are installed: one looks for another there.
function(zelmora_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LINKS})
    target_compile_definitions(${name} PRIVATE ${ZELMORA_DEFINITIONS} ZELMORA_VERSION="${PROJECT_VERSION}")
    zelmora_precompile(${name} ${ZELMORA_HEADERS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endfunction()
