# Packs the folder that CPack has gathered so that the archive's bytes depend on the files and on
# SOURCE_DATE_EPOCH alone.
set(archive "${CPACK_TEMPORARY_DIRECTORY}.tar.gz")
file(GLOB folder RELATIVE "${CPACK_TEMPORARY_DIRECTORY}" "${CPACK_TEMPORARY_DIRECTORY}/*")
execute_process(
    COMMAND tar --create --format=ustar --sort=name --owner=0 --group=0 --numeric-owner
        --mtime=@$ENV{SOURCE_DATE_EPOCH} ${folder}
    COMMAND gzip --no-name --best
    WORKING_DIRECTORY "${CPACK_TEMPORARY_DIRECTORY}"
    OUTPUT_FILE "${archive}"
    COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES "${archive}")
