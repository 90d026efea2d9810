"""Installs the Debian package in bare systems, which are made once and kept in FOLDER, and plays it there
as two users: the first start, an upgrade in the middle of a game, purge and reinstallation. Run by root.

    tools/setup/screen.py python3 -B tests/packages/debian.py PACKAGE FOLDER
"""
import os
import sys
import tempfile
from subprocess import PIPE, STDOUT, run

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "window"))
from game import LIST, TABLE, Game, front_window, read, require, wait_for
from screen import running

package, folder = map(os.path.abspath, sys.argv[1:])
USERS = {"root": "0", "anna": "1000", "ben": "1001"}
PREPARE = """mkdir -p "$0"; cd "$0"; apt-config dump Acquire >apt.conf  # the machine's own ways to a mirror
    [ -e $1.tar.gz ] || { mmdebstrap --variant=apt --aptopt=apt.conf $1 new.tar.gz; mv new.tar.gz $1.tar.gz; }
    mkdir "$3/root"; tar -xf $1.tar.gz -C "$3/root"; cp "$2" "$3/root/first.deb"; cd "$3"  # and one to upgrade to:
    dpkg-deb -R "$2" later; echo later >>later/usr/lib/games/solvanta/Solvanta
    sed -i "s/^Version: .*/Version: 99/" later/DEBIAN/control; mv later/usr/share/games/solvanta/{Solvanta.ico,Neu.bmp}
    dpkg-deb --root-owner-group --build later root/later.deb"""
ENTER = 'mount --rbind /dev "$0/dev"; mount -t proc none "$0/proc"; exec chroot --userspec="$1:$1" "$0" env -i "${@:2}"'
INSTALL = "apt-get update; useradd -m -u 1000 anna; useradd -m -u 1001 ben; apt-get install --yes /first.deb"
UPGRADE = """apt-get install --yes /later.deb; cd /home/ben/.local/share/solvanta; rm Herz_2.bmp; echo own >Herz_2.bmp"""
REINSTALL = "apt-get purge --yes solvanta; ! ls /usr/lib/games/solvanta; apt-get install --yes /first.deb"
CHECK = """apt-get install --yes appstream desktop-file-utils lintian >/log; cd /usr/share
    setpriv --reuid=1000 lintian --pedantic -I --fail-on=pedantic,info,warning,error /first.deb
    appstreamcli validate --no-net metainfo/org.solvanta.*.xml; desktop-file-validate applications/org.solvanta.*.desktop"""


def must(*command):
    done = run(command, stdout=PIPE, stderr=STDOUT, text=True, check=False)
    require(done.returncode == 0, *command, done.stdout)


def entered(user, *command):
    """What runs a command in the system, before which the variables of its environment may stand."""
    return ["unshare", "--mount", "bash", "-c", ENTER, root, USERS[user], f"HOME=/home/{user}", "LC_ALL=C.UTF-8",
            "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND=noninteractive", *command]


def game_of(user):
    return Game(entered(user, "DISPLAY=" + os.environ["DISPLAY"], "QT_QPA_PLATFORM=xcb", "/usr/games/solvanta"))


def play(user, dealt, meanwhile=lambda: None):
    """A game of a user, who has dealt so often then."""
    with game_of(user) as game:
        game.deal()
        meanwhile()
        require((game.end(), game.said()) == (0, ""), user, "is told", game.said())
    counts = read(f"{root}/home/{user}/.local/share/solvanta/{LIST}").split(b"\r\n")[10]
    require(counts == b"%d,0" % dealt, user, "has dealt", counts)


def upgrade_and_start_again():
    must(*entered("root", "sh", "-ec", UPGRADE))
    later, own = game_of("ben"), root + "/home/ben/.local/share/solvanta/"
    require((later.exit_status(), later.said()) == (0, ""), "the later start says", later.said())
    front_window(TABLE)
    require(read(own + "Solvanta") == read(root + "/usr/lib/games/solvanta/Solvanta"), "another program")
    links = [os.path.islink(own + name) for name in ("Neu.bmp", "Solvanta.ico", "Herz_2.bmp", "Herz_1.bmp")]
    require(links == [True, False, False, True] and read(own + "Herz_2.bmp") == b"own\n", "pictures", links)


def play_on_wayland(user):
    place, log = root + "/run/wayland", open(root + "/said", "wb")
    os.mkdir(place)
    with running("weston", "--backend=headless-backend.so", "--socket=screen", stderr=log,
                 env={**os.environ, "XDG_RUNTIME_DIR": place}):
        wait_for(lambda: os.path.exists(place + "/screen"), "weston")
        must("chown", "-R", USERS[user], place)
        with running(*entered(user, "XDG_RUNTIME_DIR=/run/wayland", "WAYLAND_DISPLAY=screen", "WAYLAND_DEBUG=1",
                              "/usr/games/solvanta"), stderr=log) as game:
            wait_for(lambda: b".attach(wl_buffer" in read(log.name) and TABLE.encode() in read(log.name), "the window")
            game.terminate()
            require(game.wait() == 0, "the game ends under Wayland with", game.returncode)


for release in ("bookworm", "trixie"):
    with tempfile.TemporaryDirectory() as work:
        root = work + "/root"
        must("bash", "-ec", PREPARE, folder, release, package, work)
        must(*entered("root", "sh", "-ec", INSTALL))
        play("anna", 1)
        play_on_wayland("anna")
        play("ben", 1, upgrade_and_start_again)
        must(*entered("root", "sh", "-ec", REINSTALL))
        play("anna", 2)
        play("ben", 2)
        must(*entered("root", "sh", "-ec", CHECK))
    must("piuparts", "--no-eatmydata", "--keep-sources-list", "--ignore=/var/cache/debconf/tmp.ci",  # of Debian 13's own
         "--basetgz", f"{folder}/{release}.tar.gz", "--distribution", release, package)
    print("Debian's", release, "plays it", flush=True)
