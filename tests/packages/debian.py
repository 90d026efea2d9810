"""Installs the Debian package in bare systems of Debian and plays it there as two users: from the first
start through an upgrade in the middle of a game to purge and reinstallation. Run by root.

    tools/setup/screen.py python3 -B tests/packages/debian.py PACKAGE FOLDER

FOLDER keeps the systems, which are made once.
"""
import contextlib
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "window"))
from game import LIST, TABLE, Game, front_window, read, require, wait_for
from screen import running

package, folder = map(os.path.abspath, sys.argv[1:])
RELEASES = {"12": "bookworm", "13": "trixie"}
USERS = {"anna": "1000", "ben": "1001"}
AT_ONCE = 10
LIBRARY, PICTURES, OWN = "usr/lib/games/solvanta", "usr/share/games/solvanta", "home/{}/.local/share/solvanta"
# What the later version has in place of the first one's pictures, and what Ben does to his.
NEW, REMOVED, CHANGED, REPLACED = "Neu.bmp", "Solvanta.ico", "Herz_1.bmp", "Herz_2.bmp"


def run(*command, **options):
    """What a command says, which must succeed."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options)
    require(done.returncode == 0, *command, done.stdout)
    return done.stdout


def make_system(name):
    system = os.path.join(folder, name + ".tar.gz")
    if not os.path.exists(system):
        os.makedirs(folder, exist_ok=True)
        with open(settings := os.path.join(folder, "apt.conf"), "w", encoding="utf-8") as file:
            file.write(run("apt-config", "dump", "Acquire"))  # the ways there are to a mirror
        run("mmdebstrap", "--variant=apt", "--aptopt=" + settings, RELEASES[name], system + ".new")
        os.rename(system + ".new", system)
    return system


def make_later_version(of, to):
    """A package of version 99 with another program and other pictures."""
    run("dpkg-deb", "--raw-extract", of, to)
    for file, change in {"DEBIAN/control": "s/^Version: .*/Version: 99/", LIBRARY + "/Solvanta": "$s/$/ 99/",
                         f"{PICTURES}/{CHANGED}": "$s/$/ 99/"}.items():
        run("sed", "--in-place", change, os.path.join(to, file))
    os.rename(f"{to}/{PICTURES}/{REMOVED}", f"{to}/{PICTURES}/{NEW}")
    run("dpkg-deb", "--root-owner-group", "--build", to, to + ".deb")
    return to + ".deb"


class System:
    """A Debian in a directory."""

    def __init__(self, root):
        self.root = root

    def command(self, *command, user="0", **environment):
        """What runs a command there."""
        environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C.UTF-8", "DEBIAN_FRONTEND": "noninteractive",
                       **environment}
        script = 'mount --rbind /dev "$0/dev"; mount -t proc none "$0/proc"; exec chroot --userspec="$1" "$0" "${@:2}"'
        return ["unshare", "--mount", "bash", "-c", script, self.root, f"{USERS.get(user, user)}:{USERS.get(user, user)}",
                "env", "-i", *(f"{name}={value}" for name, value in environment.items()), *command]

    def run(self, *command, user="0"):
        return run(*self.command(*command, user=user, HOME="/root"))

    def install(self, *packages):
        self.run("apt-get", "install", "--yes", *packages)

    def install_file(self, path):
        shutil.copy(path, self.root + "/solvanta.deb")
        self.install("/solvanta.deb")

    def game(self, user, **environment):
        return self.command("/usr/games/solvanta", user=user, HOME=f"/home/{user}", DISPLAY=os.environ["DISPLAY"],
                            **environment)

    def own(self, user, name=""):
        """The path, from here, of a file of the user's directory."""
        return os.path.join(self.root, OWN.format(user), name)

    def play(self, user, dealt):
        """A game of a user, who has dealt so often then."""
        with Game(self.game(user)) as game:
            game.deal()
            require((game.end(), game.said()) == (0, ""), user, "is told", game.said())
        self.check(user, dealt)

    def check(self, user, dealt):
        """Holds a user's directory to what is installed, and to the games dealt."""
        require(read(self.own(user, LIST)).split(b"\r\n")[10] == b"%d,0" % dealt, user, read(self.own(user, LIST)))
        require(read(self.own(user, "Solvanta")) == read(f"{self.root}/{LIBRARY}/Solvanta"), user, "has another program")
        links = {name: f"/{PICTURES}/{name}" for name in os.listdir(f"{self.root}/{PICTURES}")}
        files = {name for name in os.listdir(self.own(user)) if not os.path.islink(self.own(user, name))}
        require({name: os.readlink(self.own(user, name)) for name in os.listdir(self.own(user)) if name not in files} ==
                {name: link for name, link in links.items() if name not in files}, user, os.listdir(self.own(user)))
        require(files == {LIST, "Solvanta"} | ({REPLACED} if user == "ben" else set()), user, "has", files)

    def start_many(self, user):
        """So many starts at once leave one game, and nobody has a word to say."""
        games = [Game(self.game(user)) for _ in range(AT_ONCE)]
        wait_for(lambda: sum(game.runs() for game in games) <= 1, "the end of all games but one")
        playing = [game for game in games if game.runs()]
        with playing[0] as game:
            require(game.end() == 0 and not any(each.process.returncode or each.said() for each in games), user,
                    [each.said() for each in games])

    def play_on_wayland(self, user):
        """Started under Wayland the game shows its window, and ends in order."""
        os.makedirs(place := self.root + "/run/wayland", mode=0o700)
        with open(self.root + "/log", "w+", encoding="utf-8") as log, running(
                "weston", "--backend=headless-backend.so", "--socket=screen", "--idle-time=0",
                env={**os.environ, "XDG_RUNTIME_DIR": place}, stdout=log, stderr=log):
            wait_for(lambda: os.path.exists(place + "/screen"), "weston")
            for path in (place, place + "/screen"):
                os.chown(path, int(USERS[user]), -1)
            command = self.game(user, XDG_RUNTIME_DIR="/run/wayland", WAYLAND_DISPLAY="screen",
                                QT_QPA_PLATFORM="wayland", WAYLAND_DEBUG="1")
            with open(self.root + "/said", "w+", encoding="utf-8") as said, running(*command, stderr=said) as game:
                wait_for(lambda: f'set_title("{TABLE}")' in read(said.name).decode() and
                         b".attach(wl_buffer" in read(said.name), "the window under Wayland")
                game.terminate()
                require(game.wait() == 0, "the game ends under Wayland with", game.returncode)


def upgrade_in_a_game(system, later):
    with Game(system.game("ben")) as game:
        game.deal()
        os.remove(system.own("ben", REPLACED))
        shutil.copy(f"{system.root}/{PICTURES}/{CHANGED}", system.own("ben", REPLACED))
        system.install_file(later)
        again = Game(system.game("ben"))
        require((again.exit_status(), again.said()) == (0, ""), "the later start says", again.said())
        front_window(TABLE)
        game.deal()
        require(game.end() == 0, "the game that was upgraded does not end well")
    system.check("ben", 2)
    require(os.path.lexists(system.own("ben", NEW)) and not os.path.lexists(system.own("ben", REMOVED)), "pictures")


def try_system(root, later):
    system = System(root)
    system.run("apt-get", "update")
    system.install_file(package)
    for user, number in USERS.items():
        system.run("useradd", "--create-home", "--uid", number, user)
    system.start_many("anna")
    system.play("anna", 1)
    system.play_on_wayland("anna")
    upgrade_in_a_game(system, later)
    system.start_many("anna")
    system.play("anna", 2)
    system.run("apt-get", "purge", "--yes", "solvanta")
    require(not os.path.exists(f"{root}/{LIBRARY}"), "left after the purge")
    system.install_file(package)
    system.play("anna", 3)
    system.play("ben", 3)
    system.install("appstream", "desktop-file-utils", "lintian")
    said = system.run("lintian", "--pedantic", "-I", "/solvanta.deb", user="nobody")
    require(said == "", "lintian says", said)
    system.run("appstreamcli", "validate", "--no-net", "/usr/share/metainfo/org.solvanta.solvanta.metainfo.xml")
    system.run("desktop-file-validate", "/usr/share/applications/org.solvanta.solvanta.desktop")


for release in RELEASES:
    bare = make_system(release)
    with tempfile.TemporaryDirectory(dir=folder) as work:
        os.mkdir(work + "/root")
        run("tar", "--extract", "--file", bare, "--directory", work + "/root")
        try_system(work + "/root", make_later_version(package, work + "/later"))
    run("piuparts", "--no-eatmydata", "--keep-sources-list", "--basetgz", bare, "--distribution", RELEASES[release], package)
    print("Debian", release, "- played", flush=True)
