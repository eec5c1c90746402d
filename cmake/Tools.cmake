# Programs that make data at build time run on the machine that builds. Where that builds for another
# system they come from a build of its own, of which MORLENE_HOST_TOOLS names the folder `tools`.
set(MORLENE_HOST_TOOLS "" CACHE PATH "Where this machine's tools lie, to build for another system")

# morlene_tool(NAME [LIBRARIES target...])
function(morlene_tool name)
    cmake_parse_arguments(ARG "" "" "LIBRARIES" ${ARGN})
    if(CMAKE_CROSSCOMPILING)
        add_executable(${name} IMPORTED GLOBAL)
        set_target_properties(${name} PROPERTIES IMPORTED_LOCATION ${MORLENE_HOST_TOOLS}/${name})
        return()
    endif()
    add_executable(${name} ${CMAKE_SOURCE_DIR}/tools/${name}.cpp)
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} morlene_flags)
    set_target_properties(${name} PROPERTIES
        AUTOMOC OFF RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tools)
endfunction()
