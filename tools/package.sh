#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the Debian packages of what is committed, in build/package, and has lintian look at them.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/prepare.sh
install_missing dpkg-dev fakeroot lintian debhelper \
    $(sed -n '/^Build-Depends:/,/^[A-Z].*:/{s/^Build-Depends://;/^[A-Z]/d;s/([^)]*)//;s/,//;s/debhelper-compat//;p}' debian/control)
rm -rf build/package
mkdir -p build/package/halvern
git archive HEAD | tar -x -C build/package/halvern

# Objects come out of ccache where there is one. No package of debugging symbols is made, so no symbols are.
if command -v ccache > /dev/null; then export CCACHE_DIR="${CCACHE_DIR:-$(ccache --get-config cache_dir)}"; fi
export DEB_BUILD_OPTIONS="${DEB_BUILD_OPTIONS:-noautodbgsym parallel=$(nproc)}" DEB_CXXFLAGS_STRIP="${DEB_CXXFLAGS_STRIP:--g}"
(cd build/package/halvern && dpkg-buildpackage -us -uc -b) > build-package.log 2>&1 || {
    tail -n 40 build-package.log
    echo "The packages could not be made; build-package.log has all of it." >&2
    exit 1
}
ls -l build/package/*.deb
lintian --fail-on error,warning build/package/*.changes
