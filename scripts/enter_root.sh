#!/usr/bin/env bash
# enter_root.sh ROOT COMMAND: runs COMMAND in the copy of the project in ROOT, with the devices that programs
# need. For fresh_root.sh, which starts it in separate namespaces; the mounts disappear with them.
set -euo pipefail
root=$1 command=$2
mount --bind "$root" "$root" # tests that mount something need / to be a mount point
mount -t proc proc "$root/proc"
mount -t tmpfs -o mode=0755 tmpfs "$root/dev"
for device in full null random tty urandom zero; do
    : >"$root/dev/$device"
    mount --bind "/dev/$device" "$root/dev/$device"
done
mkdir "$root/dev/pts" "$root/dev/shm"
mount -t devpts -o newinstance,ptmxmode=0666,mode=0620 devpts "$root/dev/pts"
mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
ln -s pts/ptmx "$root/dev/ptmx"
ln -s /proc/self/fd "$root/dev/fd"
ln -s /proc/self/fd/0 "$root/dev/stdin"
ln -s /proc/self/fd/1 "$root/dev/stdout"
ln -s /proc/self/fd/2 "$root/dev/stderr"
hostname fresh # sudo needs a name that it can resolve
{ cat /etc/hosts && echo '127.0.0.1 fresh'; } >"$root/etc/hosts"
exec chroot "$root" env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin TERM=dumb \
    ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} \
    bash -c "cd /kedrin && $command"
