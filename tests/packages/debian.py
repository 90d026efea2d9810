"""Installs the Debian package in bare systems and plays it there as two users: the first start, an upgrade
in the middle of a game, purge and reinstallation. Run by root.

    tools/setup/screen.py python3 -B tests/packages/debian.py PACKAGE FOLDER

FOLDER keeps the systems, which are made once.
"""
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "window"))
from game import LIST, TABLE, Game, front_window, read, require, wait_for
from screen import running

package, folder = map(os.path.abspath, sys.argv[1:])
USERS = {"root": "0", "anna": "1000", "ben": "1001"}
# With the machine's own ways to a mirror.
MAKE = ('mkdir -p "${1%/*}"; apt-config dump Acquire >"$1.conf"; mmdebstrap --variant=apt --aptopt="$1.conf" "$0" '
        '"$1.new.tar.gz"; mv "$1.new.tar.gz" "$1"')
# A package with another program and other pictures, to upgrade to.
MAKE_LATER = """dpkg-deb -R "$0" "$1"; cd "$1"; echo later >>usr/lib/games/solvanta/Solvanta
    sed -i "s/^Version: .*/Version: 99/" DEBIAN/control; cd usr/share/games/solvanta; mv Solvanta.ico Neu.bmp
    dpkg-deb --root-owner-group --build "$1" "$1.deb" """
ENTER = 'mount --rbind /dev "$0/dev"; mount -t proc none "$0/proc"; exec chroot --userspec="$1:$1" "$0" env -i "${@:2}"'
CHECK = """apt-get install --yes appstream desktop-file-utils lintian >/log; cd /usr/share
    setpriv --reuid=1000 lintian --pedantic -I --fail-on=pedantic,info,warning,error /solvanta.deb
    appstreamcli validate --no-net metainfo/org.solvanta.*.xml; desktop-file-validate applications/org.solvanta.*.desktop"""


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    require(done.returncode == 0, *command, done.stdout)


def entered(user, *command):
    """What runs a command in the system, before which the variables of its environment may stand."""
    return ["unshare", "--mount", "bash", "-c", ENTER, root, USERS[user], f"HOME=/home/{user}", "LC_ALL=C.UTF-8",
            "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND=noninteractive", *command]


def install(path):
    shutil.copy(path, root + "/solvanta.deb")
    run(*entered("root", "apt-get", "install", "--yes", "/solvanta.deb"))


def game_of(user):
    return Game(entered(user, "DISPLAY=" + os.environ["DISPLAY"], "QT_QPA_PLATFORM=xcb", "/usr/games/solvanta"))


def own(user, name):
    return f"{root}/home/{user}/.local/share/solvanta/{name}"


def play(user, dealt, meanwhile=lambda: None):
    """A game of a user, who has dealt so often then."""
    with game_of(user) as game:
        game.deal()
        meanwhile()
        require((game.end(), game.said()) == (0, ""), user, "is told", game.said())
    require(read(own(user, LIST)).split(b"\r\n")[10] == b"%d,0" % dealt, user, read(own(user, LIST)))


def upgrade_and_start_again():
    os.remove(own("ben", "Herz_2.bmp"))
    shutil.copy(package, own("ben", "Herz_2.bmp"))
    install(work + "/later.deb")
    later = game_of("ben")
    require((later.exit_status(), later.said()) == (0, ""), "the later start says", later.said())
    front_window(TABLE)
    require(read(own("ben", "Solvanta")) == read(root + "/usr/lib/games/solvanta/Solvanta"), "another program")
    links = [os.path.islink(own("ben", name)) for name in ("Neu.bmp", "Solvanta.ico", "Herz_2.bmp")]
    require(links == [True, False, False] and read(own("ben", "Herz_2.bmp")) == read(package), "pictures", links)


def play_on_wayland(user):
    os.mkdir(place := root + "/run/wayland")
    with open(root + "/said", "wb") as said, running("weston", "--backend=headless-backend.so", "--socket=screen",
                                                     stderr=said, env={**os.environ, "XDG_RUNTIME_DIR": place}):
        wait_for(lambda: os.path.exists(place + "/screen"), "weston")
        run("chown", "-R", USERS[user], place)
        variables = ["XDG_RUNTIME_DIR=/run/wayland", "WAYLAND_DISPLAY=screen", "WAYLAND_DEBUG=1"]
        with running(*entered(user, *variables, "/usr/games/solvanta"), stderr=said) as game:
            for sign in (f'set_title("{TABLE}")'.encode(), b".attach(wl_buffer"):
                wait_for(lambda: sign in read(said.name), sign)
            game.terminate()
            require(game.wait() == 0, "the game ends under Wayland with", game.returncode)


for release in ("bookworm", "trixie"):
    if not os.path.exists(system := f"{folder}/{release}.tar.gz"):
        run("bash", "-ec", MAKE, release, system)
    with tempfile.TemporaryDirectory(dir=folder) as work:
        os.mkdir(root := work + "/root")
        run("tar", "-xf", system, "-C", root)
        run("bash", "-ec", MAKE_LATER, package, work + "/later")
        run(*entered("root", "sh", "-ec", "apt-get update; useradd -m -u 1000 anna; useradd -m -u 1001 ben"))
        install(package)
        play("anna", 1)
        play_on_wayland("anna")
        play("ben", 1, upgrade_and_start_again)
        play("ben", 2)
        run(*entered("root", "apt-get", "purge", "--yes", "solvanta"))
        require(not os.path.lexists(root + "/usr/lib/games/solvanta"), "left after the purge")
        install(package)
        play("anna", 2)
        play("ben", 3)
        run(*entered("root", "sh", "-ec", CHECK))
    run("piuparts", "--no-eatmydata", "--keep-sources-list", "--basetgz", system, "--distribution", release, package)
    print("Debian's", release, "plays it", flush=True)
