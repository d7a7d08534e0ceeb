# Takes the texts out of the sources once more and fails when one of them has no translation:
# cmake -DLUPDATE=... -DTRANSLATION=file.ts -DSOURCES=folder[;folder...] -DWORK=folder -P Complete.cmake
get_filename_component(name ${TRANSLATION} NAME)
file(MAKE_DIRECTORY ${WORK})
configure_file(${TRANSLATION} ${WORK}/${name} COPYONLY)
execute_process(
    COMMAND ${LUPDATE} -silent -no-obsolete -locations none ${SOURCES} -ts ${WORK}/${name}
    ERROR_QUIET
    COMMAND_ERROR_IS_FATAL ANY)
file(READ ${WORK}/${name} texts)
string(REGEX MATCHALL "<source>[^<]*</source>[^/]*<translation type=\"unfinished\"" missing "${texts}")
list(TRANSFORM missing REPLACE "<source>([^<]*)</source>.*" "\\1")
if(missing)
    list(JOIN missing "\n  " missing)
    message(FATAL_ERROR "${TRANSLATION} has no translation of:\n  ${missing}")
endif()
string(FIND "${texts}" "<translation>" first)
if(first EQUAL -1)
    message(FATAL_ERROR "${TRANSLATION}: not a text was found in ${SOURCES}.")
endif()
