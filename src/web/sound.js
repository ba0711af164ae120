// The sound of a film: the samples of each frame, one after another.

const kSampleZero = 127;
const kLead = 0.02; // seconds until the first samples are heard

function makeSound() {
  let context = null, output = null, next = 0, lastRate = 0;

  // A context of the film's rate joins the samples of two frames without a click.
  function wake(rate) {
    if (!window.AudioContext || rate === 0) return;
    if (!context || rate !== lastRate) {
      context?.close();
      try {
        context = new AudioContext({ sampleRate: rate });
      } catch {
        context = new AudioContext();
      }
      lastRate = rate;
    }
    context.resume();
  }

  function begin(rate) {
    wake(rate);
    output = context.createGain();
    output.connect(context.destination);
    next = 0;
  }

  return {
    wake,
    play(samples, rate) {
      if (!window.AudioContext) return;
      if (!output) begin(rate);
      const buffer = context.createBuffer(1, samples.length, rate);
      buffer.getChannelData(0).set(Float32Array.from(samples, (sample) => (sample - kSampleZero) / 128));
      const source = new AudioBufferSourceNode(context, { buffer });
      source.connect(output);
      if (next === 0) next = context.currentTime + kLead;
      const late = context.currentTime - next; // what is late by more than it lasts is left out
      if (late <= 0) source.start(next);
      else if (late < buffer.duration) source.start(0, late);
      next += buffer.duration;
    },
    hold: () => context?.suspend(),
    resume: () => context?.resume(),
    stop() {
      output?.disconnect();
      output = null;
    },
  };
}
