# Where the sources of the libraries come from: a folder of the caller's, or Debian's archive.

# version_here NAME: the version of the host's library whose source package is NAME.
version_here() {
  local package=$1-dev
  [ "$1" != sqlite3 ] || package=libsqlite3-dev
  dpkg-query -W -f '${source:Version}' "$package"
}

# list_sources: a private copy of the machine's own lists of archives, which asks for sources instead of programs.
list_sources() {
  local list lists=$work/apt/sources.list.d
  mkdir -p "$lists" "$work/apt/lists/partial" "$work/apt/cache/archives/partial"
  for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ ! -e "$list" ] || sed -n 's/^deb\s/deb-src /p' "$list" > "$lists/$(basename "$list" .list).list"
  done
  for list in /etc/apt/sources.list.d/*.sources; do
    [ ! -e "$list" ] || sed 's/^Types:.*/Types: deb-src/' "$list" > "$lists/$(basename "$list")"
  done
}

private_apt() {
  apt-get -q -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$work/apt/sources.list.d" \
    -o Dir::State::lists="$work/apt/lists" -o Dir::Cache="$work/apt/cache" "$@"
}

# fetch NAME: unpacks the source package into the folder of sources, or says why not.
fetch() {
  local version log=$work/apt/$1.log folder
  version=$(version_here "$1")
  if [ -z "${updated:-}" ]; then
    list_sources
    private_apt update > "$work/apt/update.log" 2>&1 || say "not all archives have lists of sources, see $work/apt/update.log"
    updated=yes
  fi
  rm -rf "$work/download/$1"
  mkdir -p "$work/download/$1"
  say "fetching the source of $1 $version"
  if (cd "$work/download/$1" && private_apt source "$1=$version") > "$log" 2>&1; then
    for folder in "$work/download/$1"/*/; do mv "$folder" "$work/sources/$1"; done
    return 0
  fi
  grep '^ *[0-9][0-9][0-9] ' "$log" | sort -u | sed 's/^/   the archive says:/; s/ *\[.*//' || true
  return 1
}

# source_of NAME: sets `source` to the folder with these sources; empty when it is not to be had.
source_of() {
  local folder
  source=
  for folder in ${given:+"$given/$1"*/} "$work/sources/$1/"; do
    [ ! -d "$folder" ] || { source=${folder%/}; return; }
  done
  ! fetch "$1" || source=$work/sources/$1
}
