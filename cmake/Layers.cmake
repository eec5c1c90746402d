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
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer -O1 -Wno-error)
    target_link_options(morlene_flags INTERFACE -fsanitize=address,undefined)
endif()

# morlene_precompiled(TARGET HEADERS header... | REUSE_FROM target): headers that a target reads
# before each of its files, so that they are read once. What a file uses it includes all the same:
# the lint reads the files without this.
function(morlene_precompiled target)
    cmake_parse_arguments(ARG "" "REUSE_FROM" "HEADERS" ${ARGN})
    if(NOT MORLENE_PRECOMPILED)
        return()
    elseif(ARG_REUSE_FROM)
        target_precompile_headers(${target} REUSE_FROM ${ARG_REUSE_FROM})
    else()
        target_precompile_headers(${target} PRIVATE ${ARG_HEADERS})
    endif()
endfunction()

# morlene_layer(NAME DEPENDS layer... [SOURCES file...] [LIBRARIES target...] [HEADERS_OF target])
# Without SOURCES every .cpp below the current folder belongs to the layer. HEADERS_OF names the layer
# that lends its precompiled headers; those above the platform borrow from the first of them, since
# they see the toolkit's value types alone.
function(morlene_layer name)
    cmake_parse_arguments(ARG "" "HEADERS_OF" "DEPENDS;SOURCES;LIBRARIES" ${ARGN})
    if(NOT ARG_SOURCES)
        file(GLOB_RECURSE ARG_SOURCES CONFIGURE_DEPENDS
            ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    endif()
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} ${ARG_LIBRARIES} PRIVATE morlene_flags)
    if(name STREQUAL platform_base)
        morlene_precompiled(${name} HEADERS <QtWidgets/QApplication> <QtWidgets/QWidget>
            <QtGui/QPainter> <QtGui/QPixmap> <QtCore/QString> <QtCore/QHash> <QtCore/QFile>
            <algorithm> <functional> <memory> <vector>)
    elseif(name STREQUAL language)
        morlene_precompiled(${name} HEADERS <QtCore/QString> <QtCore/QStringList> <QtCore/QList>
            <QtCore/QByteArray> <algorithm> <functional> <memory> <vector>)
    elseif(NOT DEFINED ARG_HEADERS_OF)
        morlene_precompiled(${name} REUSE_FROM language)
    elseif(ARG_HEADERS_OF)
        morlene_precompiled(${name} REUSE_FROM ${ARG_HEADERS_OF})
    endif()
endfunction()
