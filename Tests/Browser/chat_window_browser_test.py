#!/usr/bin/env python3
"""Plays a conversation in the editor's chat tab, served by `tavrine --ui`, in headless Chromium.

Against the local backend: the implementer mode is picked in the mode selector, a prompt is typed and
sent with Enter, "Processing request..." animates and vanishes, the assistant's text and the created
file's diff block (numbered in the new column only) appear; Pause is clicked while the next answer is
polled for, Continue resumes, End closes the conversation. Screenshots go to the output folder.
Exit code 77 (skipped) when Chromium, its driver or Selenium is missing.
"""
import argparse
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import traceback

# Debian's python3-selenium, also when another python3 runs the test.
sys.path.append("/usr/lib/python3/dist-packages")
try:
	from selenium import webdriver
	from selenium.common.exceptions import StaleElementReferenceException, WebDriverException
	from selenium.webdriver.chrome.service import Service
	from selenium.webdriver.common.action_chains import ActionChains
	from selenium.webdriver.common.actions.wheel_input import ScrollOrigin
	from selenium.webdriver.common.by import By
	from selenium.webdriver.common.keys import Keys
	from selenium.webdriver.support.ui import Select
except ImportError:
	print("python3-selenium is missing (Scripts/install-deps.sh installs it); skipping")
	sys.exit(77)

CHROMIUM = shutil.which("chromium") or shutil.which("chromium-browser")
CHROMEDRIVER = shutil.which("chromedriver") or "/usr/bin/chromedriver"
API_KEY = "local-demo-key"


class Failure(Exception):
	pass


def read_line_matching(process, pattern, timeout, what):
	"""Reads the process's output until a line matches; gives the match."""
	deadline = time.time() + timeout
	seen = []
	while time.time() < deadline:
		line = process.stdout.readline()
		if not line:
			if process.poll() is not None:
				break
			continue
		seen.append(line)
		match = re.search(pattern, line)
		if match:
			return match
	raise Failure(f"{what} did not start:\n{''.join(seen)}")


def wait_until(condition, timeout, what):
	deadline = time.time() + timeout
	while time.time() < deadline:
		try:
			value = condition()
		except StaleElementReferenceException:
			# The page redrew between finding an element and reading it.
			value = None
		if value:
			return value
		time.sleep(0.1)
	raise Failure(f"timed out waiting for {what}")


class ChatPage:
	"""The chat tab as the page draws it: elements carry their widget's type."""

	def __init__(self, driver, out_dir):
		self.driver = driver
		self.out_dir = out_dir

	def shot(self, name):
		path = os.path.join(self.out_dir, name + ".png")
		self.driver.save_screenshot(path)
		print("screenshot:", path)

	def button(self, label):
		buttons = self.driver.find_elements(By.CSS_SELECTOR, "[data-type='SButton']")
		for button in buttons:
			if button.text.strip() == label and button.value_of_css_property("display") != "none":
				return button
		return None

	def is_enabled(self, label):
		button = self.button(label)
		return button is not None and "off" not in button.get_attribute("class").split()

	def is_visible(self, label):
		button = self.button(label)
		return button is not None and button.is_displayed()

	def prompt_box(self):
		return self.driver.find_element(By.CSS_SELECTOR, "textarea.ed")

	def scroll_state(self, element):
		"""The scroll offset, and how far the end still is."""
		return self.driver.execute_script(
			"const e = arguments[0]; return [e.scrollTop, e.scrollHeight - e.clientHeight - e.scrollTop];", element)

	def user_scrolls(self):
		return int(self.driver.execute_script("return document.body.dataset.userScrolls || 0"))

	def all_events_handled(self):
		return self.driver.execute_script("return Number(document.body.dataset.ack || 0) >= Number(document.body.dataset.sent || 0)")

	def texts(self):
		return [e.text for e in self.driver.find_elements(By.CSS_SELECTOR, ".ro, .text")]

	def has_text(self, fragment):
		return any(fragment in text for text in self.texts())


def play(page, project_dir):
	driver = page.driver
	wait_until(lambda: page.has_text("I'm Tavrine"), 20, "the welcome text")
	wait_until(lambda: page.button("[ Start ]") is not None, 10, "the buttons")
	page.shot("01-welcome")
	if page.is_enabled("[ Start ]"):
		raise Failure("[ Start ] is enabled with an empty prompt")
	if page.is_visible("Pause"):
		raise Failure("Pause shows while nothing runs")
	if page.is_enabled("Redo"):
		raise Failure("Redo is enabled before anything was undone")

	# Let the agent run tools without approval.
	combos = driver.find_elements(By.CSS_SELECTOR, "select.combo")
	if combos:
		Select(combos[0]).select_by_visible_text("Explainer And Implementer Mode")
		wait_until(lambda: Select(driver.find_elements(By.CSS_SELECTOR, "select.combo")[0]).first_selected_option.text
			== "Explainer And Implementer Mode", 5, "the mode to stay selected")

	box = page.prompt_box()
	box.click()
	box.send_keys("Add a greeting")
	wait_until(lambda: page.is_enabled("[ Start ]"), 5, "[ Start ] to be enabled by the typed prompt")
	# Shift+Enter puts a line end behind the text and sends nothing.
	box.send_keys(Keys.SHIFT, Keys.ENTER)
	box.send_keys(Keys.NULL)
	wait_until(lambda: page.prompt_box().get_attribute("value") == "Add a greeting\n", 5, "Shift+Enter's line end")
	box.send_keys("header, please.")
	box.send_keys(Keys.ENTER)

	# "Processing request..." animates its dots, then vanishes when the answer comes.
	frames = set()
	def processing_frames():
		for text in page.texts():
			if re.fullmatch(r"Processing request\.{0,3}", text.strip()):
				frames.add(text.strip())
		return len(frames) >= 3
	wait_until(processing_frames, 10, "the animated 'Processing request...' line")
	page.shot("02-processing")
	if page.prompt_box().is_enabled():
		raise Failure("the prompt box is enabled while the request is polled")
	if not page.is_visible("Pause") or page.is_visible("Continue"):
		raise Failure("Pause should stand where Continue stood while a request runs")
	wait_until(lambda: page.has_text("I add a greeting header"), 20, "the assistant's text")
	wait_until(lambda: page.has_text("Source/SampleProject/Greeting.h"), 10, "the diff block's path")
	if page.prompt_box().get_attribute("value") != "":
		raise Failure("the prompt box was not cleared after sending")
	if not os.path.isfile(os.path.join(project_dir, "Source/SampleProject/Greeting.h")):
		raise Failure("the created file is not on disk")
	lines = [e.text.strip() for e in driver.find_elements(By.CSS_SELECTOR, ".text")]
	if "+" not in lines or "-" in lines:
		raise Failure("a created file should show added lines only")
	for number in ("1", "9"):
		if number not in lines:
			raise Failure(f"line number {number} is missing from the diff block")
	page.shot("03-diff")

	# The tool results went back; pause while the next answer is polled for.
	wait_until(lambda: page.is_enabled("Pause"), 10, "Pause to be enabled during the next request")
	page.button("Pause").click()
	wait_until(lambda: page.is_visible("Pause") and not page.is_enabled("Pause"), 5, "Pause to turn disabled after the click")
	wait_until(lambda: page.has_text("The process has been paused."), 30, "the pause to take effect")
	wait_until(lambda: page.is_visible("Continue") and page.is_enabled("Continue"), 5, "Continue in Pause with an empty box")
	if os.path.exists(os.path.join(project_dir, "Source/SampleProject/Farewell.h")):
		raise Failure("the paused answer's tool ran before Continue")
	page.shot("04-paused")

	page.button("Continue").click()
	wait_until(lambda: page.has_text("Source/SampleProject/Farewell.h"), 20, "the paused tool to run after Continue")
	# The user scrolls up: the next message must not pull the view back to the end.
	chat = driver.find_element(By.CSS_SELECTOR, "[data-type='SScrollBox']")
	ActionChains(driver).scroll_from_origin(ScrollOrigin.from_element(chat), 0, -300).perform()
	wait_until(lambda: page.scroll_state(chat)[1] > 50, 5, "the chat to scroll up")
	wait_until(lambda: page.user_scrolls() > 0 and page.all_events_handled(), 5, "the editor to hear of the user's scroll")
	scrolled_to = page.scroll_state(chat)
	wait_until(lambda: page.has_text("Both headers are in place."), 30, "the end of the turn")
	time.sleep(0.5)
	if page.scroll_state(chat)[0] > scrolled_to[0] + 5:
		raise Failure(f"a new message moved the view the user had scrolled: {scrolled_to} -> {page.scroll_state(chat)}")
	wait_until(lambda: page.prompt_box().is_enabled(), 10, "the prompt box to be enabled again")
	page.shot("05-continued")
	undo_enabled = page.is_enabled("Undo")
	print("Undo enabled after the turn:", undo_enabled)
	if page.is_enabled("Redo"):
		raise Failure("Redo is enabled though nothing was undone")

	wait_until(lambda: page.is_enabled("[ End ]"), 5, "[ End ] to be enabled in a conversation")
	page.button("[ End ]").click()
	wait_until(lambda: page.has_text("[ User End ]"), 10, "the end of the conversation")
	# The user's own action shows the end again.
	wait_until(lambda: page.scroll_state(chat)[1] < 5, 5, "[ End ] to scroll the chat to its end")
	wait_until(lambda: not page.is_enabled("[ End ]"), 5, "[ End ] to turn disabled in Idle")
	# A passing notice goes when the next message comes: none is left once the conversation ended.
	if any(re.fullmatch(r"(Processing|Pausing) request\.{0,3}", text.strip()) for text in page.texts()):
		raise Failure("an animated notice stayed after the conversation ended")
	page.shot("06-ended")

	# Closing the tab leaves the conversation; the tool bar's Tavrine button opens a new window.
	driver.find_element(By.CSS_SELECTOR, ".tabhead .close").click()
	wait_until(lambda: not driver.find_elements(By.CSS_SELECTOR, ".tabhead"), 5, "the tab to close")
	buttons = [b for b in driver.find_elements(By.CSS_SELECTOR, ".toolbutton") if b.text.strip() == "Tavrine"]
	if not buttons:
		raise Failure("the tool bar has no Tavrine button")
	buttons[0].click()
	wait_until(lambda: page.has_text("I'm Tavrine") and not page.has_text("[ User End ]"), 10, "a new window from the tool bar")
	page.shot("07-reopened")


def main():
	parser = argparse.ArgumentParser()
	parser.add_argument("--host", required=True)
	parser.add_argument("--backend", required=True)
	parser.add_argument("--project", required=True)
	parser.add_argument("--scenario", required=True)
	parser.add_argument("--out", required=True)
	args = parser.parse_args()

	if not CHROMIUM or not os.path.exists(CHROMEDRIVER):
		print("chromium or chromium-driver is missing (Scripts/install-deps.sh installs them); skipping")
		return 77

	os.makedirs(args.out, exist_ok=True)
	# Screenshots of an earlier run would pass for this one's.
	for old in os.listdir(args.out):
		if old.endswith(".png"):
			os.remove(os.path.join(args.out, old))
	work = tempfile.mkdtemp(prefix="tavrine-browser-")
	backend = host = driver = None
	try:
		project = os.path.join(work, "SampleProject")
		shutil.copytree(args.project, project, ignore=shutil.ignore_patterns("Saved", "Intermediate", "Binaries"))
		backend = subprocess.Popen([args.backend, "--scenario", args.scenario, "--cert", os.path.join(work, "cert.pem"),
			"--key", os.path.join(work, "key.pem"), "--port", "0", "--api-key", API_KEY,
			"--record", os.path.join(args.out, "requests.jsonl")],
			stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
		port = read_line_matching(backend, r"Listening on .*:(\d+)", 30, "the local backend").group(1)
		ini = os.path.join(project, "Config", "DefaultPlugin.ini")
		with open(ini, encoding="utf-8") as f:
			text = f.read()
		with open(ini, "w", encoding="utf-8") as f:
			f.write(re.sub(r"(?m)^DevApiUrl=.*$", f"DevApiUrl=127.0.0.1:{port}/dev", text))

		host_log = open(os.path.join(args.out, "host.log"), "w", encoding="utf-8")
		host = subprocess.Popen([args.host, "--project", project, "--ca-file", os.path.join(work, "cert.pem"), "--ui", "--ui-port", "0",
			"--source-control", "none", "--no-color"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
		address = read_line_matching(host, r"Tavrine window: (http://127\.0\.0\.1:\d+/)", 60, "the editor stand-in").group(1)
		# Keep draining the host's output so it never blocks on a full pipe.
		threading.Thread(target=lambda: shutil.copyfileobj(host.stdout, host_log), daemon=True).start()

		options = webdriver.ChromeOptions()
		options.binary_location = CHROMIUM
		for flag in ("--headless", "--no-sandbox", "--disable-gpu", "--disable-background-networking", "--disable-component-update",
				"--disable-sync", "--no-first-run", "--window-size=960,1100", f"--user-data-dir={os.path.join(work, 'chromium')}"):
			options.add_argument(flag)
		driver = webdriver.Chrome(service=Service(CHROMEDRIVER), options=options)
		driver.get(address)
		play(ChatPage(driver, args.out), project)

		# Nothing but the host served the page.
		for entry in driver.execute_script("return performance.getEntriesByType('resource').map(e => e.name)"):
			if not entry.startswith(address.rstrip("/")):
				raise Failure(f"the page loaded {entry} from outside the host")
		# The host shuts down cleanly when asked to stop.
		driver.quit()
		driver = None
		host.send_signal(signal.SIGTERM)
		code = host.wait(timeout=30)
		host = None
		if code != 0:
			raise Failure(f"the host ended with code {code} when asked to stop")
		print("The conversation played in the browser.")
		return 0
	except (Failure, WebDriverException) as error:
		if driver:
			try:
				ChatPage(driver, args.out).shot("failure")
			except WebDriverException:
				pass
		print("FAILED:", str(error).splitlines()[0] if str(error) else repr(error))
		traceback.print_exc(limit=4)
		return 1
	finally:
		if driver:
			driver.quit()
		if host:
			host.send_signal(signal.SIGTERM)
			try:
				host.wait(timeout=20)
			except subprocess.TimeoutExpired:
				host.kill()
		if backend:
			backend.terminate()
			backend.wait(timeout=10)
		shutil.rmtree(work, ignore_errors=True)


if __name__ == "__main__":
	sys.exit(main())
