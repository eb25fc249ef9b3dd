# What an installed Quillform consists of: the library, its headers, its skins, the examples, the documentation, and
# what CMake and pkg-config need to find it. quillform-view installs itself.

# The directory that the environment variable ARBHOME names: the library looks below it for data/Quillform/skins.
set(QUILLFORM_INSTALL_HOME "${CMAKE_INSTALL_DATADIR}/quillform")
set(QUILLFORM_INSTALL_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/Quillform")

install(TARGETS Quillform EXPORT QuillformTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")

# The relays between an element and its Qt widgets, and the texts built into the library, concern nobody else.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Quillform" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
  FILES_MATCHING PATTERN "*.h"
  PATTERN "SoBuiltInSkins.h" EXCLUDE
  PATTERN "skins" EXCLUDE
  REGEX "/(containers|controls|menus)/So[A-Za-z]*Q[A-Z][A-Za-z]*[.]h$" EXCLUDE)

install(DIRECTORY "${PROJECT_SOURCE_DIR}/Quillform/skins"
  DESTINATION "${QUILLFORM_INSTALL_HOME}/data/Quillform"
  FILES_MATCHING PATTERN "*.iv")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples" DESTINATION "${QUILLFORM_INSTALL_HOME}"
  FILES_MATCHING PATTERN "*.iv" PATTERN "*.cpp" PATTERN "CMakeLists.txt")
set(documentation "${CMAKE_INSTALL_DATAROOTDIR}/doc/quillform")
install(FILES "${PROJECT_SOURCE_DIR}/README.md" DESTINATION "${documentation}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION "${documentation}"
  FILES_MATCHING PATTERN "*.md" PATTERN "*.png")

# CMake.
install(EXPORT QuillformTargets NAMESPACE Quillform:: DESTINATION "${QUILLFORM_INSTALL_CMAKE}")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/QuillformConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/QuillformConfig.cmake"
  INSTALL_DESTINATION "${QUILLFORM_INSTALL_CMAKE}"
  PATH_VARS QUILLFORM_INSTALL_HOME)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/QuillformConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/QuillformConfig.cmake"
  "${PROJECT_BINARY_DIR}/QuillformConfigVersion.cmake"
  DESTINATION "${QUILLFORM_INSTALL_CMAKE}")

# pkg-config. Its paths start at the file itself, so that the installed tree can be moved.
set(pc_directory "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH prefix_from_pc "${pc_directory}" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
file(RELATIVE_PATH libdir_from_prefix "${CMAKE_INSTALL_PREFIX}" "${CMAKE_INSTALL_FULL_LIBDIR}")
file(RELATIVE_PATH includedir_from_prefix "${CMAKE_INSTALL_PREFIX}" "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
file(RELATIVE_PATH home_from_prefix "${CMAKE_INSTALL_PREFIX}" "${CMAKE_INSTALL_FULL_DATADIR}/quillform")

# Coin and SoQt are named by their directories and not as modules: not every distribution has a pkg-config file
# for Coin, and without it that of SoQt does not work either. pkg-config leaves out the system's directories.
set(scene_graph_libs "")
set(scene_graph_cflags "")
foreach(target SoQt::SoQt Coin::Coin)
  get_target_property(location ${target} LOCATION)
  get_filename_component(location "${location}" DIRECTORY)
  list(APPEND scene_graph_libs "-L${location}")
  get_target_property(directories ${target} INTERFACE_INCLUDE_DIRECTORIES)
  list(TRANSFORM directories PREPEND "-I")
  list(APPEND scene_graph_cflags ${directories})
endforeach()
list(REMOVE_DUPLICATES scene_graph_libs)
list(APPEND scene_graph_libs -lSoQt -lCoin)
list(JOIN scene_graph_libs " " scene_graph_libs)
list(REMOVE_DUPLICATES scene_graph_cflags)
list(JOIN scene_graph_cflags " " scene_graph_cflags)
configure_file("${CMAKE_CURRENT_LIST_DIR}/Quillform.pc.in" "${PROJECT_BINARY_DIR}/Quillform.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/Quillform.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
