"""A copy of the project that is built with one changed source at a time. The project itself is never changed."""

import os
import pathlib
import shutil
import subprocess
import time

# Where an endless loop reserves memory until it ends.
MEMORY_KIB = 8 * 1024 * 1024


class Workspace:
    """@param project  folder of the project
    @param folder  where the copy and its build are kept from one run to the next"""

    def __init__(self, project, folder, jobs):
        self.project = pathlib.Path(project)
        self.source = pathlib.Path(folder) / "copy"
        self.build = self.source / "build" / "dev"  # as in the project, so that ccache knows the unchanged sources
        self.jobs = jobs
        self.changed = None

    def prepare(self):
        """Makes the copy the same as the project. Files that are the same stay untouched, so that they are not
        compiled again; one that an interrupted run left changed is not."""
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], text=True,
                                cwd=self.project, check=True, capture_output=True).stdout.split("\0")
        names = {name for name in listed if name and (self.project / name).is_file()}
        for name in names:
            original, copy = self.project / name, self.source / name
            if not copy.exists() or copy.read_bytes() != original.read_bytes():
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(original, copy)
        for copy in [path for path in self.source.rglob("*") if path.is_file() and self.build not in path.parents]:
            if str(copy.relative_to(self.source)) not in names:
                copy.unlink()
        subprocess.run(["cmake", "--preset", "dev", "-DKEDRIN_STYLE=OFF"], cwd=self.source, check=True,
                       stdout=subprocess.DEVNULL)

    def change(self, mutant):
        self.changed = mutant.file
        (self.source / mutant.file).write_text(mutant.applied((self.project / mutant.file).read_text()))

    def restore(self):
        if self.changed is not None:
            shutil.copy(self.project / self.changed, self.source / self.changed)
            self.changed = None

    def make(self, targets):
        """@returns whether the targets could be built"""
        command = ["cmake", "--build", self.build, "-j", str(self.jobs), "--target", *targets]
        return subprocess.run(command, capture_output=True).returncode == 0

    def objects_of(self, file):
        """The code that a source compiles to, without what names its lines: for each of its object files."""
        objects = sorted((self.build / "src").rglob(pathlib.Path(file).name + ".o"))
        stripped = self.build / "stripped.o"
        codes = []
        for compiled in objects:
            subprocess.run(["objcopy", "--strip-debug", compiled, stripped], check=True)
            codes.append(stripped.read_bytes())
        return codes

    def run(self, step, limit):
        """@param limit  seconds after which the step counts as red
        @returns the reason why the step is red, or None, and the seconds it took"""
        began = time.monotonic()
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": "", "QT_QPA_PLATFORM": "offscreen"}
        command = ["bash", "-c", f'ulimit -c 0 -v {MEMORY_KIB}; exec "$@"', "bash", *step.command(self.build, limit)]
        process = subprocess.Popen(command, cwd=self.build, env=environment, start_new_session=True,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        try:
            output, _ = process.communicate(timeout=limit)
            reason = None if process.returncode == 0 else step.first_failure(output.decode(errors="replace"))
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, 9)
            process.communicate()
            reason = "time limit"
        return reason, time.monotonic() - began
