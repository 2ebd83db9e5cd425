#!/usr/bin/env python3
# Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
"""Checks the Open Job Description template against the rules of version 2023-09 that concern what it uses, and runs its tasks.

    openjd.py TEMPLATE QUARVEL SCENE OUTPUT_FOLDER TASKS

The rules are those of "Template Schemas", which Open Job Description publishes: which properties an object has, how names are
written, and which values a format string may ask for where it stands.
"""
import re
import subprocess
import sys

import yaml

IDENTIFIER = re.compile(r"[A-Za-z_][A-Za-z0-9_]{0,63}")
INTERPOLATION = re.compile(r"\{\{\s*([A-Za-z0-9_.]+)\s*\}\}")

# The properties of each object: those that have to be there, and those that may.
PROPERTIES = {
    "template": ({"specificationVersion", "name", "steps"}, {"parameterDefinitions", "description", "jobEnvironments"}),
    "PATH": ({"name", "type"}, {"description", "default", "allowedValues", "minLength", "maxLength", "objectType", "dataFlow", "userInterface"}),
    "INT": ({"name", "type"}, {"description", "default", "allowedValues", "minValue", "maxValue", "userInterface"}),
    "step": ({"name", "script"}, {"description", "dependencies", "stepEnvironments", "hostRequirements", "parameterSpace"}),
    "parameterSpace": ({"taskParameterDefinitions"}, {"combination"}),
    "task INT": ({"name", "type", "range"}, set()),
    "hostRequirements": (set(), {"amounts", "attributes"}),
    "amount": ({"name"}, {"min", "max"}),
    "script": ({"actions"}, {"embeddedFiles"}),
    "actions": ({"onRun"}, set()),
    "action": ({"command"}, {"args", "timeout", "cancelation"}),
    "cancelation": ({"mode"}, {"notifyPeriodInSeconds"}),
}
AMOUNTS = {"amount.worker.vcpu", "amount.worker.memory", "amount.worker.gpu", "amount.worker.gpu.memory", "amount.worker.disk.scratch"}


def require(condition, message):
    if not condition:
        sys.exit(f"openjd: {message}")


def check_object(kind, value, where):
    needed, allowed = PROPERTIES[kind]
    require(isinstance(value, dict), f"{where} is no object")
    require(needed <= value.keys(), f"{where} lacks {needed - value.keys()}")
    require(value.keys() <= needed | allowed, f"{where} has {value.keys() - needed - allowed}, which {kind} does not know")


def check_format(text, known, where):
    for name in INTERPOLATION.findall(str(text)):
        require(name in known, f"{where} asks for {name}, and there is {sorted(known)}")
    require("{{" not in INTERPOLATION.sub("", str(text)), f"{where}: {text} is no format string")


def check_action(action, known, where):
    check_object("action", action, where)
    check_format(action["command"], known, where)
    for argument in action.get("args", []):
        require(isinstance(argument, str), f"{where}: {argument} is no string")
        check_format(argument, known, where)
    cancelation = action.get("cancelation", {"mode": "TERMINATE"})
    check_object("cancelation", cancelation, where)
    require(cancelation["mode"] in ("TERMINATE", "NOTIFY_THEN_TERMINATE"), f"{where}: mode {cancelation['mode']}")
    require(1 <= cancelation.get("notifyPeriodInSeconds", 120) <= 600, f"{where}: the notify period")


def check_step(step, parameters, earlier):
    check_object("step", step, "a step")
    name = step["name"]
    require(name not in earlier and 1 <= len(name) <= 64, f"the name of step {name}")
    for dependency in step.get("dependencies", []):
        require(dependency.keys() == {"dependsOn"} and dependency["dependsOn"] in earlier, f"{name} depends on {dependency}")
    amounts = step.get("hostRequirements", {}).get("amounts", [])
    for amount in amounts:
        check_object("amount", amount, name)
        require(amount["name"] in AMOUNTS and ("min" in amount or "max" in amount), f"{name}: the amount {amount}")
    require(len({amount["name"] for amount in amounts}) == len(amounts), f"{name} asks for an amount twice")
    # Paths are known on the machine that runs a task, not where the job is made of the template.
    where_made = {f"Param.{p['name']}" for p in parameters if p["type"] != "PATH"} | {f"RawParam.{p['name']}" for p in parameters}
    where_run = where_made | {f"Param.{p['name']}" for p in parameters} | {"Session.WorkingDirectory"}
    for task in step.get("parameterSpace", {}).get("taskParameterDefinitions", []):
        check_object("task INT", task, name)
        require(task["type"] == "INT" and IDENTIFIER.fullmatch(task["name"]), f"{name}: the task parameter {task}")
        check_format(task["range"], where_made, f"{name}: the range")
        where_run |= {f"Task.Param.{task['name']}", f"Task.RawParam.{task['name']}"}
    check_object("script", step["script"], name)
    check_object("actions", step["script"]["actions"], name)
    check_action(step["script"]["actions"]["onRun"], where_run, name)


def check(template):
    check_object("template", template, "the template")
    require(template["specificationVersion"] == "jobtemplate-2023-09", "the version")
    parameters = template.get("parameterDefinitions", [])
    for parameter in parameters:
        check_object(parameter["type"], parameter, f"parameter {parameter['name']}")
        require(IDENTIFIER.fullmatch(parameter["name"]), f"the name {parameter['name']}")
    require(len({p["name"] for p in parameters}) == len(parameters), "two parameters have one name")
    check_format(template["name"], {f"RawParam.{p['name']}" for p in parameters}, "the name")
    require(1 <= len(template["name"]) <= 128, "the length of the name")
    earlier = set()
    for step in template["steps"]:
        check_step(step, parameters, earlier)
        earlier.add(step["name"])


def resolve(text, values):
    return INTERPOLATION.sub(lambda found: str(values[found.group(1)]), text)


def tasks_of(step, values):
    definitions = step.get("parameterSpace", {}).get("taskParameterDefinitions", [])
    if not definitions:
        return [values]
    require(len(definitions) == 1, "this check runs steps with one task parameter")
    first, last = map(int, resolve(definitions[0]["range"], values).split("-"))
    return [values | {f"Task.Param.{definitions[0]['name']}": number} for number in range(first, last + 1)]


def run(template, quarvel, values):
    for step in template["steps"]:
        action = step["script"]["actions"]["onRun"]
        for task in tasks_of(step, values):
            require(action["command"] == "quarvel", f"{step['name']} runs {action['command']}")
            done = subprocess.run([quarvel] + [resolve(word, task) for word in action["args"]], stdout=subprocess.PIPE, text=True)
            require(done.returncode == 0, f"{step['name']} ended with {done.returncode}")
            said = [float(number) for number in re.findall(r"^openjd_progress: ([0-9.]+)$", done.stdout, re.MULTILINE)]
            require("-o" not in action["args"] or (said and said[-1] == 100 and said == sorted(said)), f"{step['name']} said {said}")


def main():
    file, quarvel, scene, output, tasks = sys.argv[1:]
    with open(file, encoding="utf-8") as text:
        template = yaml.safe_load(text)
    check(template)
    values = {"Param.Scene": scene, "Param.Output": output, "Param.Tasks": tasks}
    run(template, quarvel, values)


main()
