# The format picker images are drawn at build time by a small generator from the tables in
# layout/FormatPickers.h, then compiled into the library as the resources ":/pickers/NAME.bmp".
add_executable(bravcpl5_picker_images
  "${PROJECT_SOURCE_DIR}/tools/picker-images/GeneratePickerImages.cpp")
target_include_directories(bravcpl5_picker_images PRIVATE "${PROJECT_SOURCE_DIR}/src")
target_link_libraries(bravcpl5_picker_images PRIVATE bravcpl5_warnings)

set(PICKER_IMAGES_DIR "${CMAKE_CURRENT_BINARY_DIR}/picker-images")
set(PICKER_IMAGES_SOURCE "${PICKER_IMAGES_DIR}/qrc_picker_images.cpp")
add_custom_command(OUTPUT "${PICKER_IMAGES_SOURCE}"
  COMMAND bravcpl5_picker_images "${PICKER_IMAGES_DIR}"
  COMMAND Qt6::rcc --name picker_images --output "${PICKER_IMAGES_SOURCE}"
          "${PICKER_IMAGES_DIR}/picker_images.qrc"
  DEPENDS bravcpl5_picker_images
  COMMENT "Drawing the format picker images"
  VERBATIM)
set_source_files_properties("${PICKER_IMAGES_SOURCE}" PROPERTIES SKIP_AUTOGEN ON)
target_sources(bravcpl5_objects PRIVATE "${PICKER_IMAGES_SOURCE}")
