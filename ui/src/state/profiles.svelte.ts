import { readProfiles, type ProfileList } from "../bridge/profiles";
import { cleanName } from "../text/profile_texts";
import type { Bridge } from "../bridge/bridge";

// The profiles. The program refuses silently, so each change is followed by reading the list again.
export class Profiles {
  list = $state.raw<ProfileList | null>(null);
  note = $state("");

  constructor(
    private readonly bridge: Bridge,
    // Another profile brings its own settings and macro.
    private readonly afterChange: () => void,
  ) {}

  async load(): Promise<void> {
    const answer = await this.bridge.call("getProfiles");
    const list = answer.ok ? readProfiles(answer.value) : null;
    if (list) this.list = list;
  }

  async add(typed: string): Promise<boolean> {
    const name = cleanName(typed).trim();
    if (name === "") return false;
    const before = this.list?.names.length ?? 0;
    await this.bridge.call("addProfile", name);
    await this.settle();
    const added = (this.list?.names.length ?? 0) > before;
    this.note = added ? "" : "The profile could not be added.";
    return added;
  }

  async switchTo(index: number): Promise<void> {
    await this.bridge.call("switchProfile", index);
    await this.settle();
    this.note = this.list?.current === index ? "" : "The profile could not be changed.";
  }

  async remove(kind: "clear" | "delete"): Promise<void> {
    await this.bridge.call(kind === "clear" ? "clearProfile" : "deleteProfile");
    await this.settle();
    this.note = "";
  }

  private async settle(): Promise<void> {
    await this.load();
    this.afterChange();
  }
}
