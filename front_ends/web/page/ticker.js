// Ticks on a clock of their own: a page that is not to be seen has its timers slowed down, a worker
// does not. A timer's next tick falls due when the last one has been heard, at the next multiple of
// its interval, so that it neither drifts nor makes up for lost time.
'use strict';

const timers = new Map();

function wait(id) {
  const timer = timers.get(id);
  if (!timer) return;
  const now = performance.now();
  timer.due += timer.interval * Math.max(1, Math.ceil((now - timer.due) / timer.interval));
  timer.waiting = setTimeout(() => postMessage(id), timer.due - now);
}

onmessage = ({ data }) => {
  if (data.start) {
    timers.set(data.start, { interval: data.interval, due: performance.now(), waiting: 0 });
    wait(data.start);
  } else if (data.heard) {
    wait(data.heard);
  } else {
    clearTimeout(timers.get(data.stop)?.waiting);
    timers.delete(data.stop);
  }
};
