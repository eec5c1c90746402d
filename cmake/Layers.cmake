# A layer is a folder under src/ and a static library. It sees only the layers it names, and the
# include check in the tests holds the same order for paths that the linker would let through.

add_library(morlene_flags INTERFACE)
target_compile_options(morlene_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
target_compile_definitions(morlene_flags INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(MORLENE_SANITIZE)
    target_compile_options(morlene_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(morlene_flags INTERFACE -fsanitize=address,undefined)
endif()
if(MORLENE_FUZZ)
    target_compile_options(morlene_flags INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer -O1 -Wno-error)
    target_link_options(morlene_flags INTERFACE -fsanitize=address,undefined)
endif()

# morlene_layer(NAME DEPENDS layer... [SOURCES file...] [LIBRARIES target...])
# Without SOURCES every .cpp below the current folder belongs to the layer.
function(morlene_layer name)
    cmake_parse_arguments(ARG "" "" "DEPENDS;SOURCES;LIBRARIES" ${ARGN})
    if(NOT ARG_SOURCES)
        file(GLOB_RECURSE ARG_SOURCES CONFIGURE_DEPENDS
            ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    endif()
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} ${ARG_LIBRARIES} PRIVATE morlene_flags)
endfunction()
