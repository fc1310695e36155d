import "./styles/themes.css";
import "./styles/base.css";
import "./styles/buttons.css";
import "./styles/fields.css";
import { flushSync, mount } from "svelte";
import Page from "./frame/Page.svelte";
import { App } from "./state/app.svelte";
import { installCallbacks } from "./frame/callbacks";

const app = new App(window);
installCallbacks(window, app);
void app.start();

function putTogether() {
  mount(Page, { target: document.getElementById("app")!, props: { app } });
  flushSync();
}

if (app.isChild) {
  // A script of the program follows this one at once and looks for the panels.
  putTogether();
} else {
  // The questions leave the page when this script has ended, so that the program looks its answers
  // up while the page is put together.
  setTimeout(putTogether);
}
