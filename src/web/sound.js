// The sound of a film: the samples of each frame, one after another.

const kSampleZero = 127;
const kLead = 0.02; // seconds until the first samples are heard

function makeSound() {
  let context = null, output = null, next = 0, lastRate = 0;

  // A context of the film's rate joins the samples of two frames without a click.
  function begin(rate) {
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
    output = context.createGain();
    output.connect(context.destination);
    next = 0;
  }

  return {
    play(samples, rate) {
      if (!window.AudioContext) return;
      if (!output) begin(rate);
      const buffer = context.createBuffer(1, samples.length, rate);
      buffer.getChannelData(0).set(Float32Array.from(samples, (sample) => (sample - kSampleZero) / 128));
      const source = new AudioBufferSourceNode(context, { buffer });
      source.connect(output);
      if (next < context.currentTime) next = context.currentTime + kLead;
      source.start(next);
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
