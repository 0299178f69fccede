#!/usr/bin/env bash
# Makes the reference: the guide, the classes of the public headers as their docstrings describe them, their published
# properties, and the charts of the gallery beside the code that draws them, in out/reference/html/index.html. Fails for
# what a docstring gets wrong, and for a class without one. Pictures are those of out/gallery, drawn where there are none.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh doxygen
scripts/build.sh release gallery print_properties >/dev/null
export QT_QPA_PLATFORM=offscreen
[[ -e out/gallery/shares.png ]] || build/release/Examples/gallery >/dev/null

Out=out/reference
rm -rf "$Out"
mkdir -p "$Out/include" "$Out/pages"
ln -s ../../../Sources "$Out/include/zyphos" # so that headers go by the names that programs include

# A section of a page: the pictures in a row, each under its title, and the code that draws them.
Section() { # ANCHOR TITLE FILES PICTURES
  local File
  printf '\n## %s {#%s}\n%s\n' "$2" "$1" "$4"
  for File in $3; do printf '\n`Examples/%s`\n\n\\include %s\n' "$File" "$File"; done
}

# Each row of the gallery's table names the files of a chart, its title and the function that makes it.
Page=$Out/pages/Gallery.md
printf '# Gallery {#gallery}\n\nCharts of real data, and the code that makes them.\n' >"$Page"
declare -A Titles Pictures
Order=()
while IFS=$'\t' read -r Name Title Function; do
  Source=$(cd Examples && grep -lE "^void (zy::examples::)?$Function\(" gallery/*.cpp)
  [[ -n ${Titles[$Source]:-} ]] || Order+=("$Source")
  Titles[$Source]+=${Titles[$Source]:+, }$Title
  Pictures[$Source]+=$'\n'"![$Title](gallery-$Name.png)"$'\n'
  cp "out/gallery/$Name.png" "$Out/pages/gallery-$Name.png"
done < <(sed -nE 's/.*\{"([a-z-]+)", "([^"]+)", (Make[A-Za-z0-9]+)(, [a-z]+)?\}.*/\1\t\2\t\3/p' Examples/gallery/Gallery.cpp)
for Source in "${Order[@]}"; do
  Section "gallery_$(basename "$Source" .cpp)" "${Titles[$Source]}" "$Source" "${Pictures[$Source]}" >>"$Page"
done
Section gallery_common "What they share" "gallery/Gallery.h gallery/Gallery.cpp" "" >>"$Page"

build/release/Docs/print_properties >"$Out/pages/Properties.md"

# The other examples that have a picture in the guide.
Page=$Out/pages/Examples.md
printf '# Examples {#examples}\n\nWhole programs.\n' >"$Page"
for Picture in Docs/pictures/*.png; do
  Name=$(basename "$Picture" .png)
  [[ -d Examples/$Name ]] || continue
  Section "example_$Name" "$Name" "$(cd Examples && ls "$Name"/*.h "$Name"/*.cpp 2>/dev/null)" \
    $'\n'"![$Name](pictures/$Name.png)"$'\n' >>"$Page"
done

printf '/// \\namespace zy\n/// All of the library.\n' >"$Out/pages/zy.dox"
Headers=$(cmake -P cmake/ZyPublicHeaders.cmake | grep '\.h$' | sed "s|^|$Out/include/zyphos/|")
# What guides link beside themselves lies three folders up from the pages, and their pictures lie among these. Names of
# classes become links.
{
  printf 's|](\\.\\./|](../../../|\ns|](pictures/|](|\n'
  sed -nE 's/^(class|struct) (\w+)( final)?( :.*)?( \{.*)?$/\2/p' $Headers | sort -u | sed 's|.*|/^#/!s/`&`/[&](@ref zy::&)/g|'
} >"$Out/guide.sed"
Version=$(sed -nE 's/^project\(Zyphos VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
Guide=$(git ls-files -co --exclude-standard -- 'Docs/*.md')
{
  cat Docs/Doxyfile
  printf 'PROJECT_NUMBER = %s\nWARN_LOGFILE = %s/log\nINPUT = ' "$Version" "$Out"
  printf '%s ' $Guide "$Out"/pages/{Properties,Gallery,Examples}.md "$Out/pages/zy.dox" $Headers
} | doxygen - >/dev/null
if grep -vE '(Member .* is not documented\.|^)$' "$Out/log" | grep -v '^ '; then
  echo "The reference has mistakes" >&2
  exit 1
fi
echo "$Out/html/index.html"
