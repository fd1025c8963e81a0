# find_package(Zelmora 1.0 REQUIRED COMPONENTS config log util utilwidgets db): the libraries Zelmora::<component>, and of
# the toolkit what they need. Without components: all of them.
include(CMakeFindDependencyMacro)

set(zelmora_modules_config Core Xml)
set(zelmora_modules_log Core Xml)
set(zelmora_modules_util Core Xml)
set(zelmora_modules_utilwidgets Core Xml Widgets)
set(zelmora_modules_db Core Sql Xml)
set(zelmora_components config log util utilwidgets db)

if(NOT Zelmora_FIND_COMPONENTS)
    set(Zelmora_FIND_COMPONENTS ${zelmora_components})
endif()
foreach(component IN LISTS Zelmora_FIND_COMPONENTS)
    if(component IN_LIST zelmora_components)
        find_dependency(Qt5 5.15 COMPONENTS ${zelmora_modules_${component}})
        set(Zelmora_${component}_FOUND TRUE)
    elseif(Zelmora_FIND_REQUIRED_${component})
        set(Zelmora_FOUND FALSE)
        set(Zelmora_NOT_FOUND_MESSAGE "There is no component ${component}; there are: ${zelmora_components}")
        return()
    endif()
endforeach()

include(${CMAKE_CURRENT_LIST_DIR}/ZelmoraTargets.cmake)
