# zelorgas_version_resource(program): gives a Windows program the version resource that its About
# box and the Explorer show, the icon, and the manifest. Nothing to do on other systems.
function(zelorgas_version_resource target)
  if(NOT WIN32)
    return()
  endif()
  set(rc_name ${target})
  set(rc_version
    ${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},${PROJECT_VERSION_TWEAK})
  set(rc_manifest ${PROJECT_SOURCE_DIR}/packaging/windows/zelorgas.manifest)
  set(rc_icon ${PROJECT_SOURCE_DIR}/packaging/icons/zelorgas.ico)
  set(rc_file ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/zelorgas.rc.in ${rc_file} @ONLY)
  set_source_files_properties(${rc_file} PROPERTIES OBJECT_DEPENDS "${rc_manifest};${rc_icon}")
  # A target of its own: the resource compiler does not take the C++ compiler's options.
  add_library(${target}_version OBJECT ${rc_file})
  target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_version>)
endfunction()
