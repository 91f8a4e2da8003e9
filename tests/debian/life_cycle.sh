#!/usr/bin/env bash
# life_cycle.sh: installs, uses, upgrades, removes and purges the packages, as root in a fresh Debian, in the project's
# folder. The packages are in /packages/now, those of a version before in /packages/before.
source debian/tests/checks.sh
source scripts/packages.sh
export DEBIAN_FRONTEND=noninteractive
# Recommended packages are what a user gets who asks for the window.
apt_get() { apt-get --quiet=2 --yes -o APT::Install-Recommends=true "$@" 2>&1; }
lean() { apt-get --quiet=2 --yes -o APT::Install-Recommends=false "$@" 2>&1; }
packages() { find "/packages/$1" -name '*.deb' ! -name '*-dbgsym_*' ! -name 'libtolvo-dev_*'; }
version_of() { dpkg-query -W -f '${Version}' "$1"; }
is_installed() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# files: all that a package could have left behind
files() {
    find /usr /etc /var /opt /srv -xdev \( -path /var/lib/dpkg -o -path /var/lib/apt -o -path /var/cache/apt -o -path /var/log/apt \
        -o -path /var/cache/ldconfig -o -path /var/cache/fontconfig \) -prune -o -print | sort
}
as_reader() { su --login reader --command "cd $PWD && AUTOPKGTEST_TMP=$1 ${*:2}"; }
# passes NAME: a test of the packages, run by an ordinary user.
passes() {
    install -d -o reader "/tmp/$1.$2"
    as_reader "/tmp/$1.$2" "debian/tests/$1"
}
mapfile -t now < <(packages now)
mapfile -t before < <(packages before)
kjv_state() { stat -L -c '%i %Y %Z' $modules/engkjv2006eb/CompactText.bin; }

echo "# without what is only recommended"
useradd --create-home --shell /bin/bash reader
check "the lists of packages are fetched" lean update
check "the programs for the checks are installed" need_packages "${screen_packages[@]}" fonts-dejavu-core
check "the window is installed alone" lean install /packages/now/{kedrin,kedrin-common}_*.deb
check_not "the SWORD library did not come with it" is_installed libsword1.9.0
check_not "nor did the tool" is_installed kedrin-module
check "without a text the launcher tells how to get one" says 'kedrin-module get' bash -c 'kedrin 2>&1 || [ $? = 1 ]'
check "the tool is installed" lean install /packages/now/kedrin-module_*.deb
check_not "the SWORD library did not come with it" is_installed libsword1.9.0
check "without it the tool tells what to install" says 'apt install kedrin-module-sword' \
    bash -c 'kedrin-module add sword:KJV 2>&1 || [ $? = 3 ]'
passes own-text alone
check "all is purged" apt_get purge 'kedrin*'

echo "# with what is recommended, of a version before"
check "it is installed" apt_get install "${before[@]}"
check "the texts of SWORD that are recommended came with it" is_installed sword-text-kjv
check "purge ends well" apt_get purge 'kedrin*'
files >/tmp/clean
check_not "and leaves nothing" grep -iE 'kedrin|tolvo' /tmp/clean
check "it is installed again" apt_get install "${before[@]}"
passes window before
as_reader /tmp "printf 'Gen\t1\t1\tText\n' >/tmp/mine.txt && kedrin-module add /tmp/mine.txt >/dev/null"
mkdir $modules/shared
cp -r $modules/engkjv2006eb/* $modules/shared # a module of the administrator
kjv=$(kjv_state)

echo "# upgrade"
old=$(version_of kedrin)
check "the new version is installed" apt_get install "${now[@]}"
check "it is newer" dpkg --compare-versions "$(version_of kedrin)" gt "$old"
check "the module of SWORD is the same" test "$kjv" = "$(kjv_state)"
check "the module of the administrator is kept" is_module shared
check "the module of the user is kept" says mine su --login reader --command "kedrin-module list"
passes window now
passes own-text now

echo "# texts of SWORD"
debian/tests/sword-texts

echo "# removal"
check "the part for SWORD is removed" apt_get remove kedrin-module-sword
check_not "with the modules that it made" test -e $modules/engkjv2006eb
check "the module of the administrator is kept" is_module shared
check "the part for SWORD is installed again" apt_get install /packages/now/kedrin-module-sword_*.deb
check "and makes the modules again" is_module engkjv2006eb
check "all is removed" apt_get remove 'kedrin*'
check "no program is left" test -z "$(find /usr/bin /usr/lib -name 'kedrin*')"
check "the module of the administrator is kept" test -s /var/lib/kedrin/modules/bibles/shared/BibleTitles.txt
check "all is purged" apt_get purge 'kedrin*'
files >/tmp/end
check "purge leaves nothing" diff /tmp/clean /tmp/end
check "the user's own module is left" test -s /home/reader/.local/share/kedrin/modules/bibles/mine/BibleTitles.txt
check "dpkg has nothing to complain of" test -z "$(dpkg --audit)"
