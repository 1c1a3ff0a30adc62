# Shared by ./run and ./test: installing what is missing, building, saying what is going on.

say() { printf '%s\n' "== $*"; }
fail() { printf '%s\n' "!! $*" >&2; exit 1; }

# install_missing FILE: the packages named in FILE, one a line, that are not installed yet.
install_missing() {
  command -v dpkg-query >/dev/null || { say "not a Debian system: make sure that these are there: $(xargs < "$1")"; return; }
  local missing=() package
  while read -r package; do
    [ -n "$package" ] || continue
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done < "$1"
  [ "${#missing[@]}" -gt 0 ] || return 0
  say "installing: ${missing[*]}"
  local sudo=""
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || fail "these packages are missing, and there is no sudo to install them: ${missing[*]}"
    sudo=sudo
  fi
  $sudo apt-get update -qq || fail "the package lists cannot be fetched"
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
    fail "installing failed"
}

# wine_in FOLDER: from here on programs for Windows run in that folder of their own. Their server outlives the gaps
# between two tests: a program that starts while it ends would fail.
wine_in() {
  export WINEPREFIX=$1 WINEDEBUG=-all
  mkdir -p "$1"
  wineserver -p60 2> /dev/null || true  # one may still be there
  wineboot --init > /dev/null 2>&1 || fail "Wine does not start"
}

# build PRESET [TARGET...]
build() {
  local preset=$1
  shift
  [ "build/$preset/build.ninja" -nt CMakePresets.json ] || cmake --preset "$preset" >/dev/null || fail "configuring failed"
  cmake --build --preset "$preset" ${@:+--target "$@"} || fail "building failed"
}
