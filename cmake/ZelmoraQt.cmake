# Which toolkit the tree is built with. What differs between the two is met here and in toolkit/, nowhere else.
set(ZELMORA_QT 5 CACHE STRING "The major version of the toolkit: 5 or 6")
set_property(CACHE ZELMORA_QT PROPERTY STRINGS 5 6)

# Two builds, one for each, install side by side into one place. What only one of them can have its name for, a library,
# is told apart by a suffix; what both have alike, programs and what is theirs, is installed by that with Qt 5, and by
# the other one where the component is named.
if(ZELMORA_QT EQUAL 6)
    set(ZELMORA_SUFFIX -qt6)
    set(ZELMORA_INSTALL_ONCE EXCLUDE_FROM_ALL)
endif()
# The oldest that will do.
set(ZELMORA_LEAST_QT_5 5.15)
set(ZELMORA_LEAST_QT_6 6.4)
# What a program needs besides Core and Xml that links our libraries statically.
set(ZELMORA_STATIC_MODULES_6 Core5Compat)
# The modules that a till has: a program without widgets and without SQL loads no other.
set(ZELMORA_CORE_MODULES_5 "Core Xml")
set(ZELMORA_CORE_MODULES_6 "Core Core5Compat Xml")

# zelmora_find_qt(<module>...): the toolkit's modules as Qt${ZELMORA_QT}::<module>.
macro(zelmora_find_qt)
    find_package(Qt${ZELMORA_QT} ${ZELMORA_LEAST_QT_${ZELMORA_QT}} REQUIRED COMPONENTS ${ARGN})
    # It tells each test the folder that it stands in, which none asks for: no header could be compiled once for all.
    if(TARGET Qt6::Test)
        set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS QT_TESTLIB_LIB)
    endif()
endmacro()
