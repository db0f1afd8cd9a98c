# The pages that the tool writes are files of their own; they become strings in it, in Pages.cpp of the
# build.
set(page_files
    page.html parts.css standalone.js parts.js plots.css plots.js
    map.html map.css map-model.js map-grid.js map-tables.js map-start.js
    journal.html journal.js
    fleet.html fleet.css fleet.js
    sim.html sim.css sim-model.js sim-curves.js sim-panels.js sim-tables.js sim-start.js
    fill.html fill.css fill-model.js fill-plots.js fill-tables.js fill-start.js)
set(page_names
    kPageHtml kPartsCss kStandaloneScript kPartsScript kPlotsCss kPlotsScript
    kMapHtml kMapCss kMapModelScript kMapGridScript kMapTablesScript kMapStartScript
    kJournalHtml kJournalScript
    kFleetHtml kFleetCss kFleetScript
    kSimHtml kSimCss kSimModelScript kSimCurvesScript kSimPanelsScript kSimTablesScript kSimStartScript
    kFillHtml kFillCss kFillModelScript kFillPlotsScript kFillTablesScript kFillStartScript)
list(TRANSFORM page_files PREPEND ${CMAKE_CURRENT_LIST_DIR}/)
list(JOIN page_files "," page_file_list)
list(JOIN page_names "," page_name_list)
set(embed_script ${CMAKE_CURRENT_LIST_DIR}/../../../cmake/EmbedText.cmake)
add_custom_command(
  OUTPUT Pages.cpp
  COMMAND ${CMAKE_COMMAND} -DOUTPUT=${CMAKE_CURRENT_BINARY_DIR}/Pages.cpp -DHEADER=pages/Pages.h
          -DNAMES=${page_name_list} -DFILES=${page_file_list} -P ${embed_script}
  DEPENDS ${page_files} ${embed_script}
  VERBATIM)
