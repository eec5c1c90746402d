# The program and its data stand side by side in one folder, which may be anywhere; a link in the
# folder of commands leads to it. How it shows among the installed programs: data/desktop.
set(program_folder lib/morlenekvt)
set(built ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
install(TARGETS morlenekvt DESTINATION ${program_folder})
install(DIRECTORY ${built}/lngmorlene ${built}/giocatori ${built}/swf ${built}/immagini ${built}/suoni
    ${built}/animazioni DESTINATION ${program_folder} PATTERN "LangSetting.ini" EXCLUDE)
install(FILES ${built}/morlenekvt.pdf ${built}/morlenekvt-english.pdf ${built}/documento.pdf
    ${built}/indis1.ttf ${built}/indis1-LICENSE.txt DESTINATION ${program_folder})
install(PROGRAMS tools/make_drive_root.sh DESTINATION ${program_folder})
# The chosen language belongs to the installation and is written by all: a link leads to the drive.
install(CODE "
    set(root \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX})
    file(MAKE_DIRECTORY \${root}/${CMAKE_INSTALL_BINDIR})
    file(CREATE_LINK ../${program_folder}/morlenekvt \${root}/${CMAKE_INSTALL_BINDIR}/morlenekvt
        SYMBOLIC)
    file(CREATE_LINK ${MORLENE_DRIVE_ROOT}LangSetting.ini
        \${root}/${program_folder}/lngmorlene/LangSetting.ini SYMBOLIC)
    # A package makes the drive where it is installed.
    if(NOT \"\$ENV{DESTDIR}\")
        set(make_drive \${CMAKE_INSTALL_PREFIX}/${program_folder}/make_drive_root.sh)
        execute_process(COMMAND \${make_drive} ${MORLENE_DRIVE_ROOT} RESULT_VARIABLE failed
            ERROR_QUIET)
        if(failed)
            message(\"-- Once, as administrator: \${make_drive} ${MORLENE_DRIVE_ROOT}\")
        endif()
    endif()
")
