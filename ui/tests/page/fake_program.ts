// Stands for the program in tests: runs inside the page before its scripts, answers every method
// and keeps a log of the calls. It must not use anything from outside its own body.
export interface ProgramOptions {
  without?: string[];
  only?: string[];
  rejecting?: string[];
  settings?: Record<string, unknown>;
  status?: Record<string, unknown>;
  preferences?: Record<string, unknown>;
  environment?: Record<string, unknown>;
  profiles?: string[];
  current?: number;
}

export interface FakeProgram {
  calls: { name: string; args: unknown[] }[];
  status: Record<string, unknown>;
  settings: Record<string, unknown>;
  preferences: Record<string, unknown>;
  environment: Record<string, unknown>;
  profiles: string[];
  current: number;
  changes: number;
  lastStatus: string;
  statusCallsUnderWay: number;
  mostStatusCallsUnderWay: number;
  answerUpdate?: (message: string) => void;
}

export function installFakeProgram(options: ProgramOptions): void {
  const program: FakeProgram = {
    calls: [],
    status: {
      state: "Idle", count: 0, restore: [],
      hkRec: "F8", hkPlay: "F7", hkAuto: "F6", hkKeySpam: "F9", hkUnlock: "F10",
      lockOn: true, unlocked: true,
      keySpamTargets: ["Space"], keySpamChord: false, ksCap: 3, reassigning: "",
      panelHover: false, autoClicking: false, keySpamming: false, canUndoContinue: false,
      ...options.status,
    },
    settings: {
      sh: 0, sm: 0, ss: 0, sms: 5, sbtn: 0, stype: 0, rptMode: 1, rptTimes: 10, locMode: 0,
      fixedX: 0, fixedY: 0, tmv: true, tclk: true, tscr: true, tkey: true, trel: false,
      tspd: 1, tloop: false, tloopMs: 500, ksh: 0, ksm: 0, kss: 0, ksms: 5, ksRptMode: 1,
      ksRptTimes: 10, holdAuto: false, holdKeySpam: false,
      ...options.settings,
    },
    preferences: {
      alwaysOnTop: false, launchOnStartup: false, startMinimized: false, hotkeysEnabled: true,
      hotkeyLock: true, disableAnimations: false, showWarnings: true, seenWarnings: [],
      minimizedPanels: [], panelOrder: [],
      ...options.preferences,
    },
    environment: {
      scale: 1, buttonsSwapped: false, themeKey: "ravelin", hooksMissing: false, hooksPutBack: 0, refusedSends: 0, failures: 0,
      ...options.environment,
    },
    profiles: options.profiles ?? ["Default Tracking Profile"],
    current: options.current ?? 0,
    changes: 0,
    lastStatus: "",
    statusCallsUnderWay: 0,
    mostStatusCallsUnderWay: 0,
  };
  const store = (keys: string[], value: unknown) => {
    const parts = String(value).split(",");
    if (parts.length < keys.length) return;
    keys.forEach((key, at) => (program.settings[key] = Number(parts[at])));
  };
  const targets = () => program.status["keySpamTargets"] as string[];
  const defaults = { ...program.settings };
  const methods: Record<string, (...args: unknown[]) => unknown> = {
    resizeWindow: () => undefined,
    updateSpammer: (text) =>
      store(["sh", "sm", "ss", "sms", "sbtn", "stype", "rptMode", "rptTimes", "locMode"], text),
    startSpammer: () => void (program.status["autoClicking"] = true),
    stopSpammer: () => void (program.status["autoClicking"] = false),
    updateKeySpam: (text) => store(["ksh", "ksm", "kss", "ksms", "ksRptMode", "ksRptTimes"], text),
    startKeySpam: () => void (program.status["keySpamming"] = targets().length > 0),
    stopKeySpam: () => void (program.status["keySpamming"] = false),
    removeKeySpamTarget: (index) => void targets().splice(Number(index), 1),
    setKeySpamChordMode: (on) => void (program.status["keySpamChord"] = on === "1"),
    pickLocation: () => undefined,
    getAppSettings: () => program.preferences,
    markWarningSeen: (id) => void (program.preferences["seenWarnings"] as unknown[]).push(id),
    setAppSetting: (key, on) => {
      if (String(key) in program.preferences) program.preferences[String(key)] = on === "1";
      if (key === "hotkeyLock") {
        program.status["lockOn"] = on === "1";
        program.status["unlocked"] = true;
      }
    },
    setPanelOrder: (ids) => void (program.preferences["panelOrder"] = String(ids).split(",")),
    resetHotkeys: () =>
      void Object.assign(program.status, {
        hkRec: "F8", hkPlay: "F7", hkAuto: "F6", hkKeySpam: "F9", hkUnlock: "F10",
      }),
    openLink: () => undefined,
    getTrackerStatus: async () => {
      program.statusCallsUnderWay += 1;
      program.mostStatusCallsUnderWay = Math.max(
        program.mostStatusCallsUnderWay,
        program.statusCallsUnderWay,
      );
      await new Promise((done) => setTimeout(done, 5));
      program.statusCallsUnderWay -= 1;
      const answer = structuredClone(program.status);
      program.status["restore"] = [];
      return answer;
    },
    clearProfile: () => void (Object.assign(program.settings, defaults), (program.status["count"] = 0)),
    addProfile: (name) => {
      if (program.profiles.length >= 3) return;
      program.profiles.push(String(name));
      program.current = program.profiles.length - 1;
    },
    deleteProfile: () => {
      if (program.profiles.length < 2) return;
      program.profiles.splice(program.current, 1);
      program.current = Math.min(program.current, program.profiles.length - 1);
    },
    switchProfile: (index) => void (program.current = Number(index)),
    getProfiles: () => ({
      current: program.current,
      names: [...program.profiles],
      cap: 3,
      defaultName: "Default Tracking Profile",
    }),
    startUpdate: () => new Promise((settle) => (program.answerUpdate = settle)),
    getSettings: () => ({ ...program.settings }),
    reassignKey: (slot) => void (program.status["reassigning"] = slot),
    detachPanel: () => "",
    getActivity: () => {
      const now = JSON.stringify(program.status);
      if (now !== program.lastStatus) program.changes += 1;
      program.lastStatus = now;
      return { changes: program.changes, clicks: 0, presses: 0 };
    },
    getEnvironment: () => program.environment,
    pagePainted: () => undefined,
    beginWindowDrag: () => undefined,
    closeThisWindow: () => undefined,
  };
  const ofChildren = ["detachPanel", "beginWindowDrag", "closeThisWindow"];
  const offered = options.only ?? Object.keys(methods).filter((name) => !ofChildren.includes(name));
  for (const name of offered) {
    if (options.without?.includes(name)) continue;
    (window as unknown as Record<string, unknown>)[name] = async (...args: unknown[]) => {
      program.calls.push({ name, args });
      if (options.rejecting?.includes(name)) throw new Error(`${name} failed`);
      return structuredClone(await methods[name]!(...args));
    };
  }
  (window as unknown as { program: FakeProgram }).program = program;
}
