# cpack runs this on the files of the package before it packs them. It lets everybody enter the
# folders, even where the build had a strict umask.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY}
    DIRECTORY_PERMISSIONS
        OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
