# Packs the folder that CPack has gathered so that the archive's bytes depend on the files and on
# SOURCE_DATE_EPOCH alone.
set(archive "${CPACK_TEMPORARY_DIRECTORY}.zip")
file(GLOB_RECURSE files RELATIVE "${CPACK_TEMPORARY_DIRECTORY}" "${CPACK_TEMPORARY_DIRECTORY}/*")
set(ENV{TZ} UTC)  # a zip holds local times
execute_process(
    COMMAND touch --date=@$ENV{SOURCE_DATE_EPOCH} ${files}
    WORKING_DIRECTORY "${CPACK_TEMPORARY_DIRECTORY}"
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(
    COMMAND zip -X -9 --quiet "${archive}" ${files}
    WORKING_DIRECTORY "${CPACK_TEMPORARY_DIRECTORY}"
    COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES "${archive}")
