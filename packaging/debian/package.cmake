# The Debian package, which cpack makes.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lookfar)
set(CPACK_PACKAGE_CONTACT "Lookfar maintainers <maintainers@lookfar.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_CMAKE_PROJECTS
    "${PROJECT_BINARY_DIR};lookfar;ALL;/"
    "${PROJECT_BINARY_DIR};lookfar;debian;/")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/open_folders.cmake)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"viewer for the still pictures of public web cameras
Lookfar shows the current picture of a public web camera on the desktop,
small or over the whole screen, keeps it fresh, smooths it, and hops between
the cameras of the user's list.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# In this order: certificates to check hosts by, fonts as wide as those that the windows are designed
# for, pictures in WebP, and what opens links in the user's browser.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "ca-certificates, fonts-liberation, qt6-image-formats-plugins, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
