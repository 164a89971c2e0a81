# The studio's page: the script is bundled by esbuild from web/ (npm packages installed by
# `npm ci`) when node is on the machine, and every page file is built into the program.
set(studio_web ${CMAKE_CURRENT_SOURCE_DIR}/frontends/studio/web)
set(studio_out ${CMAKE_CURRENT_BINARY_DIR}/studio-web)
file(GLOB studio_web_sources CONFIGURE_DEPENDS ${studio_web}/src/*.js)
find_program(QUILLET_NPM npm)
find_program(QUILLET_NODE node)
if(QUILLET_NPM AND QUILLET_NODE)
  add_custom_command(
    OUTPUT ${studio_web}/node_modules/.package-lock.json
    COMMAND ${QUILLET_NPM} ci --no-audit --no-fund --loglevel=error
    DEPENDS ${studio_web}/package.json ${studio_web}/package-lock.json
    WORKING_DIRECTORY ${studio_web}
    COMMENT "Installing the studio page's npm packages")
  add_custom_command(
    OUTPUT ${studio_out}/studio.js
    COMMAND ${QUILLET_NODE} ${studio_web}/build.mjs ${studio_out}/studio.js
    DEPENDS ${studio_web_sources} ${studio_web}/build.mjs ${studio_web}/node_modules/.package-lock.json
    WORKING_DIRECTORY ${studio_web}
    COMMENT "Bundling the studio's script")
  set(studio_js ${studio_out}/studio.js)
  set(studio_js_dep ${studio_js})
else()
  message(STATUS "node or npm missing: the studio is built without its script")
  set(studio_js ${studio_out}/missing.js)
  set(studio_js_dep)
endif()
add_custom_command(
  OUTPUT ${studio_out}/studio_assets.cpp
  COMMAND ${CMAKE_COMMAND} -DOUT=${studio_out}/studio_assets.cpp
          "-DFILES=index.html=${studio_web}/index.html\;studio.css=${studio_web}/studio.css\;studio.js=${studio_js}"
          -P ${CMAKE_CURRENT_SOURCE_DIR}/frontends/studio/embed_assets.cmake
  DEPENDS ${studio_web}/index.html ${studio_web}/studio.css ${studio_js_dep}
          ${CMAKE_CURRENT_SOURCE_DIR}/frontends/studio/embed_assets.cmake
  COMMENT "Building the studio's page into the program")
target_sources(quillet_frontends PRIVATE ${studio_out}/studio_assets.cpp)
target_compile_definitions(quillet_frontends PRIVATE
  QUILLET_PICTURES_DIR="${PROJECT_SOURCE_DIR}/resources/pictures"
  QUILLET_SAMPLE_PROJECT="${PROJECT_SOURCE_DIR}/sample/Invoicing")
# Debian ships cpp-httplib compiled, with a pkg-config file.
find_package(PkgConfig REQUIRED)
pkg_check_modules(CPP_HTTPLIB REQUIRED IMPORTED_TARGET cpp-httplib)
target_link_libraries(quillet_frontends PUBLIC PkgConfig::CPP_HTTPLIB)

# The page's own logic, run by node alone.
if(QUILLET_NODE)
  add_test(NAME studio_page_logic
    COMMAND ${QUILLET_NODE} --test ${PROJECT_SOURCE_DIR}/tests/studio/page_logic_test.mjs)
endif()

# The browser test: Debian's Chromium driven by playwright-core, when both are there.
if(QUILLET_NODE AND EXISTS /usr/bin/chromium)
  add_test(NAME studio_browser
    COMMAND ${QUILLET_NODE} ${PROJECT_SOURCE_DIR}/tests/studio/studio_browser_test.mjs
            $<TARGET_FILE:quillet> ${PROJECT_SOURCE_DIR} ${CMAKE_BINARY_DIR}/test-artifacts)
  set_tests_properties(studio_browser PROPERTIES TIMEOUT 180)
endif()
