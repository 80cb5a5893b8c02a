# Run by cpack on the files of the package before it packs them: lets everybody enter the folders,
# however close the umask of the build was.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY}
    DIRECTORY_PERMISSIONS
        OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
