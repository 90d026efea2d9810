"""Has two users play, upgrade in a game, purge and reinstall in bare systems, made once in FOLDER. Run by root.

    tools/setup/screen.py python3 -B tests/packages/debian.py PACKAGE FOLDER
"""
import os
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "window"))
from game import LIST, Game, read, require, run

package, folder = map(os.path.abspath, sys.argv[1:])
PREPARE = """mkdir -p "$0"; cd "$0"; apt-config dump Acquire >apt.conf  # the machine's own ways to a mirror
    [ -e $1.tar.gz ] || { mmdebstrap --variant=apt --aptopt=apt.conf $1 new.tar.gz; mv new.tar.gz $1.tar.gz; }
    mkdir "$3/root"; tar -xf $1.tar.gz -C "$3/root"; cp "$2" "$3/root/first.deb"; cd "$3"  # and one to upgrade to:
    dpkg-deb -R "$2" later; sed -i "s/^Version: .*/Version: 99/" later/DEBIAN/control
    echo 99 >>later/usr/lib/games/solvanta/Solvanta; dpkg-deb --root-owner-group --build later root/later.deb"""
ENTER = 'mount --rbind /dev "$0/dev"; mount -t proc none "$0/proc"; exec chroot --userspec="$1:$1" "$0" env -i "${@:2}"'
CHECK = """apt-get install --yes appstream desktop-file-utils lintian; cd /usr/share
    setpriv --reuid=1000 lintian --pedantic -I --fail-on=pedantic,info,warning,error /first.deb
    appstreamcli validate --no-net metainfo/org.solvanta.*; desktop-file-validate applications/org.solvanta.*"""


def entered(user, *command):
    """What runs a command in the system, before which the variables of its environment may stand."""
    return ["unshare", "--mount", "bash", "-c", ENTER, root, user, f"HOME=/home/{user}", "LC_ALL=C.UTF-8",
            "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND=noninteractive", *command]


def as_root(script):
    run(*entered("root", "sh", "-ec", script))


def play(user, dealt, meanwhile="true"):
    """A game of a user, who has dealt so often then."""
    with Game(entered(user, "DISPLAY=" + os.environ["DISPLAY"], "QT_QPA_PLATFORM=xcb", "/usr/games/solvanta")) as game:
        game.deal()
        as_root(meanwhile)
        require((game.end(), game.said()) == (0, ""), user, "is told", game.said())
    counts = read(f"{root}/home/{user}/.local/share/solvanta/{LIST}").split(b"\r\n")[10]
    require(counts == b"%d,0" % dealt, user, "has dealt", counts)


for release in ("bookworm", "trixie"):
    with tempfile.TemporaryDirectory() as work:
        root = work + "/root"
        run("bash", "-ec", PREPARE, folder, release, package, work)
        as_root("apt-get update; apt-get install --yes /first.deb; useradd -m -u 1000 anna; useradd -m ben")
        play("anna", 1)
        play("ben", 1, "apt-get install --yes /later.deb")
        as_root("apt-get purge --yes solvanta; ! ls /usr/lib/games/solvanta; apt-get install --yes /first.deb")
        play("anna", 2)
        play("ben", 2)
        as_root(CHECK)
    run("piuparts", "--no-eatmydata", "--keep-sources-list", "--log-level=error",
        "--ignore=/var/cache/debconf/tmp.ci/", "--basetgz", f"{folder}/{release}.tar.gz", "-d", release, package)
    print("Debian's", release, "plays it", flush=True)
