// Ticks on a clock of their own: a page that is not to be seen has its timers slowed down, a worker
// does not. Ticks are due at whole intervals from the start. Those that a busy page or machine has
// missed are made up for; a pause of more than five intervals is taken for the machine's sleep.
'use strict';

const timers = new Map();

function wait(id) {
  const timer = timers.get(id);
  if (!timer) return;
  const now = performance.now();
  const missed = Math.floor((now - timer.due) / timer.interval);
  timer.due += timer.interval * (missed > 5 ? missed + 1 : 1);
  timer.waiting = setTimeout(() => {
    postMessage(id);
    wait(id);
  }, timer.due - now);
}

onmessage = ({ data }) => {
  if (data.start) {
    timers.set(data.start, { interval: data.interval, due: performance.now(), waiting: 0 });
    wait(data.start);
  } else {
    clearTimeout(timers.get(data.stop)?.waiting);
    timers.delete(data.stop);
  }
};
