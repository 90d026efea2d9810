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
RELEASES = {"12": "bookworm", "13": "trixie"}
USERS = {"root": 0, "anna": 1000, "ben": 1001}
AT_ONCE = 10
PROGRAM, PICTURES = "/usr/lib/games/solvanta/Solvanta", "/usr/share/games/solvanta/"
NEW, REMOVED, REPLACED = "Neu.bmp", "Solvanta.ico", "Herz_2.bmp"  # the first two are the later version's pictures
ENTER = 'mount --rbind /dev "$0/dev"; mount -t proc none "$0/proc"; exec chroot --userspec="$1:$1" "$0" env -i "${@:2}"'
METAINFO = "/usr/share/metainfo/org.solvanta.solvanta.metainfo.xml"
ENTRY = "/usr/share/applications/org.solvanta.solvanta.desktop"


def run(*command):
    """What a command says, which must succeed."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    require(done.returncode == 0, *command, done.stdout)
    return done.stdout


def make_system(release):
    system = os.path.join(folder, release + ".tar.gz")
    if not os.path.exists(system):
        run("sh", "-ec", 'mkdir -p "$0"; apt-config dump Acquire >"$0/apt.conf"', folder)  # the ways to a mirror
        run("mmdebstrap", "--variant=apt", f"--aptopt={folder}/apt.conf", RELEASES[release], folder + "/new.tar.gz")
        os.rename(folder + "/new.tar.gz", system)
    return system


def make_later_version(to):
    """A package with another program and other pictures."""
    run("sh", "-ec", f"""dpkg-deb --raw-extract {package} {to}; cd {to}; echo 99 >>.{PROGRAM}
        sed -i 's/^Version: .*/Version: 99/' DEBIAN/control; mv .{PICTURES}{REMOVED} .{PICTURES}{NEW}
        dpkg-deb --root-owner-group --build . {to}.deb""")
    return to + ".deb"


class System:
    """A Debian in a directory."""

    def __init__(self, root):
        self.root = root

    def command(self, user, *command):
        """What runs a command there; the variables of its environment stand before it."""
        return ["unshare", "--mount", "bash", "-c", ENTER, self.root, str(USERS[user]), f"HOME=/home/{user}",
                "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL=C.UTF-8", "DEBIAN_FRONTEND=noninteractive", *command]

    def run(self, *command, user="root"):
        return run(*self.command(user, *command))

    def install(self, path):
        shutil.copy(path, self.root + "/solvanta.deb")
        self.run("apt-get", "install", "--yes", "--allow-downgrades", "/solvanta.deb")

    def game(self, user):
        return Game(self.command(user, "DISPLAY=" + os.environ["DISPLAY"], "QT_QPA_PLATFORM=xcb", "/usr/games/solvanta"))

    def own(self, user, name):
        """The path, from here, of a file of the user's directory."""
        return f"{self.root}/home/{user}/.local/share/solvanta/{name}"

    def play(self, user, dealt):
        """A game of a user, who has dealt so often then, and whose program is the installed one."""
        with self.game(user) as game:
            game.deal()
            require((game.end(), game.said()) == (0, ""), user, "is told", game.said())
        require(read(self.own(user, LIST)).split(b"\r\n")[10] == b"%d,0" % dealt, user, read(self.own(user, LIST)))
        require(read(self.own(user, "Solvanta")) == read(self.root + PROGRAM), user, "has another program")

    def start_many(self, user):
        """So many starts at once leave one game, and nobody has a word to say."""
        games = [self.game(user) for _ in range(AT_ONCE)]
        wait_for(lambda: sum(game.runs() for game in games) <= 1, "the end of all games but one")
        with next(game for game in games if game.runs()) as game:
            game.end()
            require(not any(each.process.returncode or each.said() for each in games), [each.said() for each in games])

    def play_on_wayland(self, user):
        """Under Wayland alone the game shows its window, and ends in order."""
        os.mkdir(place := self.root + "/run/wayland")
        with open(self.root + "/said", "wb") as said, running(
                "weston", "--backend=headless-backend.so", "--socket=screen", stdout=said, stderr=said,
                env={**os.environ, "XDG_RUNTIME_DIR": place}):
            wait_for(lambda: os.path.exists(place + "/screen"), "weston")
            run("chown", "-R", str(USERS[user]), place)
            command = self.command(user, "XDG_RUNTIME_DIR=/run/wayland", "WAYLAND_DISPLAY=screen", "WAYLAND_DEBUG=1",
                                   "/usr/games/solvanta")
            with running(*command, stderr=said) as game:
                wait_for(lambda: all(sign in read(said.name) for sign in (f'set_title("{TABLE}")'.encode(), b".attach(wl_buf")),
                         "the window under Wayland")
                game.terminate()
                require(game.wait() == 0, "the game ends under Wayland with", game.returncode)


def upgrade_in_a_game(system, later):
    with system.game("ben") as game:
        game.deal()
        os.remove(system.own("ben", REPLACED))
        shutil.copy(package, system.own("ben", REPLACED))
        system.install(later)
        again = system.game("ben")
        require((again.exit_status(), again.said()) == (0, ""), "the later start says", again.said())
        front_window(TABLE)
        require(game.end() == 0, "the game that was upgraded does not end well")
    os.remove(system.own("ben", "Back_ganz.bmp"))
    system.play("ben", 2)
    kinds = [os.path.islink(system.own("ben", name)) for name in (NEW, "Back_ganz.bmp", REMOVED, REPLACED)]
    require(kinds == [True, True, False, False] and read(system.own("ben", REPLACED)) == read(package), "pictures", kinds)


def try_system(system, later):
    system.run("apt-get", "update")
    system.install(package)
    for user in ("anna", "ben"):
        system.run("useradd", "--create-home", "--uid", str(USERS[user]), user)
    system.start_many("anna")
    system.play("anna", 1)
    system.play_on_wayland("anna")
    upgrade_in_a_game(system, later)
    system.start_many("anna")
    system.run("apt-get", "purge", "--yes", "solvanta")
    require(not os.path.lexists(system.root + os.path.dirname(PROGRAM)), "left after the purge")
    system.install(package)
    system.play("anna", 2)
    system.play("ben", 3)
    system.run("apt-get", "install", "--yes", "appstream", "desktop-file-utils", "lintian")
    said = system.run("lintian", "--pedantic", "-I", "/solvanta.deb", user="anna")
    require(said == "", "lintian says", said)
    system.run("appstreamcli", "validate", "--no-net", METAINFO)
    system.run("desktop-file-validate", ENTRY)


for release in RELEASES:
    bare = make_system(release)
    with tempfile.TemporaryDirectory(dir=folder) as work:
        run("sh", "-ec", 'mkdir "$0"; tar -xf "$1" -C "$0"', work + "/root", bare)
        try_system(System(work + "/root"), make_later_version(work + "/later"))
    run("piuparts", "--no-eatmydata", "--keep-sources-list", "--basetgz", bare, "--distribution", RELEASES[release], package)
    print("Debian", release, "- played", flush=True)
