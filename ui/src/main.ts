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
// The program looks its answers up while the page is put together; they are taken afterwards.
void app.start();
mount(Page, { target: document.getElementById("app")!, props: { app } });
// A script of the program may follow this one at once and look for the panels.
flushSync();
