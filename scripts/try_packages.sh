#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the packages of build/packages into a scratch root, runs debian/tests there, and removes them again. The scratch
# root is this system below a layer in memory, so dpkg installs as it does anywhere, and nothing outside of it changes. It
# needs no network. It doesn't show whether the packages name everything that they depend on, because this system has what
# the build needs.
set -eu
cd "$(dirname "$0")/.."

# Where the system allows no mounts, as in some containers, the packages are only unpacked into a folder, and the tests
# run from there. Then dpkg's part isn't tried: the scripts of the packages, the administrator's file, the removal.
sudo=""
[ "$(id -u)" = 0 ] || sudo=sudo
can_mount() {
    mkdir -p build/scratch
    $sudo unshare --mount --pid --fork --kill-child sh -ec 'mount -t tmpfs tmpfs "$1"
        mkdir "$1/upper" "$1/work" "$1/root"
        mount -t overlay overlay -o "lowerdir=/,upperdir=$1/upper,workdir=$1/work" "$1/root"
        mount -t proc proc "$1/root/proc"' sh "$PWD/build/scratch" 2>/dev/null
}
if [ "${1:-}" != inside ] && ! can_mount; then
    root=$PWD/build/unpacked
    rm -rf "$root"
    mkdir -p "$root/tmp"
    for package in build/packages/*.deb; do
        dpkg-deb -x "$package" "$root"
    done
    for test in sample window; do
        echo "debian/tests/$test, with the packages unpacked"
        mkdir "$root/tmp/$test"
        env "PATH=$root/usr/bin:$PATH" "CMAKE_PREFIX_PATH=$root/usr" "PKG_CONFIG_PATH=$root/usr/share/pkgconfig" \
            "AUTOPKGTEST_TMP=$root/tmp/$test" "debian/tests/$test" >"$root/$test.log" 2>&1 || { cat "$root/$test.log"; exit 1; }
    done
    echo "The unpacked packages work. This system allows no mounts, so they weren't installed."
    exit
fi

# As root, with mounts that end with the process.
if [ "${1:-}" != inside ]; then
    exec $sudo unshare --mount --pid --fork --kill-child "$0" inside
fi

scratch=$PWD/build/scratch
mkdir -p "$scratch"
mount -t tmpfs tmpfs "$scratch"
mkdir "$scratch/upper" "$scratch/work" "$scratch/root"
mount -t overlay overlay -o "lowerdir=/,upperdir=$scratch/upper,workdir=$scratch/work" "$scratch/root"
mount -t proc proc "$scratch/root/proc"
mount --rbind /dev "$scratch/root/dev"
mount -t tmpfs tmpfs "$scratch/root/tmp"
mkdir "$scratch/root/tmp/source"
cp -r build/packages debian sample "$scratch/root/tmp/source"

# The environment of the caller may point to the tree's own programs.
exec env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/tmp LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
    chroot "$scratch/root" bash -eu <<'END'
cd /tmp/source
dpkg -i packages/*.deb >/tmp/dpkg.log 2>&1 || { cat /tmp/dpkg.log; exit 1; }

# Not as root: a program that writes beside itself would succeed.
for test in sample window; do
    echo "debian/tests/$test"
    install -d -o nobody "/tmp/$test"
    setpriv --reuid=nobody --regid=nogroup --clear-groups env "AUTOPKGTEST_TMP=/tmp/$test" "debian/tests/$test" >"/tmp/$test.log" 2>&1 || { cat "/tmp/$test.log"; exit 1; }
done

# The administrator's changes stay, and a purge leaves nothing.
echo '; mine' >>/etc/morvanite/Morvanite.ini
dpkg -i packages/morvanite-cli_*.deb >/tmp/dpkg.log 2>&1 </dev/null || { cat /tmp/dpkg.log; exit 1; }
grep -q '^; mine' /etc/morvanite/Morvanite.ini
dpkg -P morvanite morvanite-cli morvanite-device-dev morvanite-doc >/tmp/dpkg.log 2>&1 || { cat /tmp/dpkg.log; exit 1; }
left=$(find /usr /etc -xdev -name '*orvanite*' | head)
[ -z "$left" ] || { echo "a purge leaves $left"; exit 1; }
echo "The packages work and can be removed."
END
