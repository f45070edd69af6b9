# SPDX-License-Identifier: MIT

# Draws docs/targets.svg, how our own targets link, without the tests and the benchmarks (Debian package graphviz):
#   cmake --preset dev --graphviz=build/targets.dot
#   sed '/clusterLegend/,/^}/d' build/targets.dot | dot -Tsvg | sed '3a <!-- SPDX-License-Identifier: MIT -->' >docs/targets.svg
set(GRAPHVIZ_GRAPH_NAME targets)
set(GRAPHVIZ_GRAPH_HEADER "node [fontname=\"sans-serif\" fontsize=12];")
set(GRAPHVIZ_EXTERNAL_LIBS OFF)
set(GRAPHVIZ_IGNORE_TARGETS "^tst_" "^test_" "^bench_" "^vantu_(test|servicetest|documents)" "^linkuser$"
    "^vantu_resource_objects$")
set(GRAPHVIZ_GENERATE_PER_TARGET OFF)
set(GRAPHVIZ_GENERATE_DEPENDERS OFF)
