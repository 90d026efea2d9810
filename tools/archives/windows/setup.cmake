# Packs the folder that CPack has gathered into the archive, and all of it but the text on unpacking
# into the setup. The uninstaller deletes what is as the list here says.
include("${CMAKE_CURRENT_LIST_DIR}/../zip.cmake")
file(GLOB folder "${CPACK_TEMPORARY_DIRECTORY}/*")
file(GLOB files RELATIVE "${folder}" "${folder}/*")
list(REMOVE_ITEM files LIESMICH.txt Solvanta.exe)
set(list "${CPACK_TEMPORARY_DIRECTORY}.nsh")
file(WRITE "${list}" "")
foreach(file IN LISTS files)
    file(SIZE "${folder}/${file}" size)
    file(MD5 "${folder}/${file}" md5)
    # The uninstaller reads the sum as four numbers, each with its lowest byte first.
    string(REGEX REPLACE "(..)(..)(..)(..)" "\\4\\3\\2\\1" md5 "${md5}")
    file(APPEND "${list}" "\${entry} \"${file}\" ${size} ${md5}\n")
endforeach()
set(setup "${CPACK_TEMPORARY_DIRECTORY}-setup.exe")
execute_process(
    COMMAND makensis -V2 -WX -INPUTCHARSET UTF8 "-DVERSION=${CPACK_PACKAGE_VERSION}" "-DFOLDER=${folder}"
        "-DLIST=${list}" "-DSETUP=${setup}" "${CMAKE_CURRENT_LIST_DIR}/setup.nsi"
    COMMAND_ERROR_IS_FATAL ANY)
list(APPEND CPACK_EXTERNAL_BUILT_PACKAGES "${setup}")
