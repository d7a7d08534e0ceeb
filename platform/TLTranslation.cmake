# tl_add_translation(<target> <file.ts>)
# Compiles a translation with the target, puts it into the folder beside the program from which the client
# loads the translations of its language, and installs it there. An argument COMPONENT names the install
# component. Needs Qt5LinguistTools.
function(tl_add_translation target file)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "COMPONENT" "")
    get_filename_component(file ${file} ABSOLUTE)
    set(folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/translations)
    file(MAKE_DIRECTORY ${folder})
    set_source_files_properties(${file} PROPERTIES OUTPUT_LOCATION ${folder})
    qt5_add_translation(compiled ${file})
    add_custom_target(${target}Translation DEPENDS ${compiled})
    add_dependencies(${target} ${target}Translation)
    set(component)
    if(arg_COMPONENT)
        set(component COMPONENT ${arg_COMPONENT})
    endif()
    install(FILES ${compiled} DESTINATION ${CMAKE_INSTALL_BINDIR}/translations ${component})
endfunction()
