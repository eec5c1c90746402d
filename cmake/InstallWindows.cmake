# For Windows: a folder that runs where it lies. All that the program wants stands beside it, what it
# was built with is in the executable.
set(built ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
install(TARGETS morlenekvt DESTINATION .)
install(DIRECTORY ${built}/lngmorlene ${built}/giocatori ${built}/swf ${built}/immagini ${built}/suoni
    ${built}/animazioni DESTINATION .)
install(FILES ${built}/morlenekvt.pdf ${built}/morlenekvt-english.pdf ${built}/documento.pdf
    ${built}/indis1.ttf ${built}/indis1-LICENSE.txt DESTINATION .)
# The Italian words on the toolkit's own buttons; on Debian they are a package.
find_file(ITALIAN_BUTTONS qtbase_it.qm PATHS /usr/share/qt6/translations NO_DEFAULT_PATH REQUIRED
    NO_CMAKE_FIND_ROOT_PATH)
install(FILES ${ITALIAN_BUTTONS} DESTINATION .)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/LICENSES DESTINATION .)
# Those of the toolkit and of what it brings.
install(DIRECTORY ${QT6_INSTALL_PREFIX}/licenses/ DESTINATION LICENSES/toolkit)
