# cpack -G DEB makes one Debian package of everything that is installed.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillform)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_VENDOR Quillform)
set(CPACK_PACKAGE_CONTACT "Quillform maintainers <quillform@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_STRIP_FILES ON)
set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)

# The libraries that the programs are linked with are found by dpkg-shlibdeps. The rest is what the headers include,
# and what Coin opens by its development name when it draws text.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/Quillform")
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "libcoin-dev, libsoqt520-dev, qtbase5-dev, libfreetype-dev, libfontconfig-dev")

include(CPack)
